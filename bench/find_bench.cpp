// A search for something a file does not contain, compared with a plain read pass of the same file in the
// same blocks. The first argument is the length of the files in MiB (default 1024), the second the number of
// rounds (default 7).

#include <fcntl.h>
#include <unistd.h>

#include "big_file.h"
#include "fileops/stream_find.h"
#include "interleaved.h"
#include "nobody.h"
#include "other_program.h"
#include "viewer/view_file.h"

namespace {

using bench::BigFile;
using bench::Job;
using FileSystem::Compare;

void ReadPass(const std::string& path) {
  alignas(4096) static char block[FileSystem::kSearchBlock];
  const int descriptor = open(path.c_str(), O_RDONLY | O_CLOEXEC);
  while (read(descriptor, block, sizeof block) > 0) continue;
  close(descriptor);
}

class FileSource : public FileSystem::ByteSource {
 public:
  explicit FileSource(const bwp::ViewFile& file) : file_(file) {}
  std::size_t Read(void* bytes, std::size_t count) override {
    const std::size_t got = file_.ReadAt(position_, bytes, count);
    position_ += static_cast<std::int64_t>(got);
    return got;
  }

 private:
  const bwp::ViewFile& file_;
  std::int64_t position_ = 0;
};

void SearchPass(const std::string& path, const std::string& pattern, Compare compare) {
  static FileSystem::SearchState state;
  bwp::ViewFile file;
  file.Open(path);
  FileSource source(file);
  bench::NoProgress progress;
  if (FileSystem::StreamFind(progress, state, source, pattern, file.Length(), true, compare) != -1) {
    std::fprintf(stderr, "found what is not there\n");
    std::exit(1);
  }
}

struct Pattern {
  std::string name;
  std::string bytes;
};

void AddOtherPrograms(std::vector<Job>& jobs, const std::string& path, const std::string& pattern) {
  const std::vector<std::vector<std::string>> programs = {{"rg", "-c", "-a", "-F", "-j1"},
                                                          {"rg", "-i", "-c", "-a", "-F", "-j1"},
                                                          {"grep", "-c", "-a", "-F"},
                                                          {"grep", "-i", "-c", "-a", "-F"}};
  for (std::vector<std::string> words : programs) {
    std::string name;
    for (const std::string& word : words) name += word + " ";
    words.insert(words.end(), {"--", pattern, path});
    if (bench::RunProgram(words) == 1) jobs.push_back({name, [words] { bench::RunProgram(words); }});
  }
}

// The target speeds, as multiples of the read pass; 0 for none.
struct Wanted {
  double thisCase = 0.8;
  double anyCase = 0.6;
};

// The jobs are the read pass, then each pattern with and without case, then, from firstOther on, other
// programs.
void TellRatios(const std::string& title, const std::vector<Job>& jobs, Wanted wanted,
                std::size_t firstOther) {
  for (std::size_t i = 1; i < firstOther; ++i) {
    const double least = i % 2 == 1 ? wanted.thisCase : wanted.anyCase;
    bench::SpeedRow("find " + jobs[i].name + " in " + title + " / read pass", jobs[i], jobs[0],
                    least > 0 ? bench::AtLeast(least) : "");
  }
  for (std::size_t i = firstOther; i < jobs.size(); ++i) {
    const bool anyCase = jobs[i].name.find(" -i ") != std::string::npos;
    bench::SpeedRow("find in " + title + " / " + jobs[i].name, jobs[anyCase ? 2 : 1], jobs[i],
                    bench::AtLeast(1));
  }
}

void Measure(const std::string& title, const std::string& path, int rounds, bool withOthers,
             const std::vector<Pattern>& patterns, Wanted wanted = {}) {
  std::vector<Job> jobs = {{"read pass", [&] { ReadPass(path); }}};
  for (const Pattern& pattern : patterns) {
    jobs.push_back({pattern.name, [&] { SearchPass(path, pattern.bytes, Compare::kBinary); }});
    jobs.push_back(
        {pattern.name + ", any case", [&] { SearchPass(path, pattern.bytes, Compare::kIgnoreCase); }});
  }
  if (withOthers) AddOtherPrograms(jobs, path, patterns[0].bytes);
  TellRatios(title, bench::RunInterleaved(title, jobs, rounds), wanted, 1 + 2 * patterns.size());
}

void FillText(std::string& block) {
  static const std::vector<std::string> kWords = {
      "the ", "quick ", "brown ", "fox ",     "jumps ",  "over ", "a ",   "lazy ",     "dog, ",
      "and ", "Then ",  "it ",    "returns ", "home.\n", "No ",   "one ", "expected ", "that "};
  static std::uint32_t mix = 1;
  block.clear();
  while (block.size() < BigFile::kBlock)
    block += kWords[((mix = mix * 1664525U + 1013904223U) >> 16U) % kWords.size()];
  block.resize(BigFile::kBlock);
}

std::string Changed(std::string pattern, std::size_t place) {
  pattern[place] = 'b';
  return pattern;
}

}  // namespace

int main(int argc, char** argv) {
  const std::int64_t length = bench::LengthFrom(argc, argv);
  const int rounds = bench::RoundsFrom(argc, argv);
  {
    const BigFile mixed(length, bench::FillMixed);
    Measure("mixed bytes", mixed.Path(), rounds, true,
            {{"22 characters", "Bytewarp finds nothing"},
             {"7 bytes", std::string("\0\x01\0\xFE\x07", 5) + "\x80\x90"}});
  }
  {
    const BigFile text(length, FillText);
    Measure("text", text.Path(), rounds, true, {{"a word", "expectant fox"}, {"a letter", "#"}});
  }
  {
    const BigFile same(length, [](std::string& block) { block.assign(BigFile::kBlock, 'a'); });
    const std::string pattern(4096, 'a');
    Measure("one byte repeated", same.Path(), rounds, true,
            {{"4096 of it, first changed", Changed(pattern, 0)},
             {"4096 of it, last changed", Changed(pattern, 4095)}},
            {0.2, 0.2});
  }
  {
    const BigFile zeros(length, [](std::string& block) {
      block.assign(BigFile::kBlock, '\0');
      for (std::size_t i = 0; i < block.size(); i += 64) block[i] = 'b';
    });
    std::string pattern(4096, '\0');
    for (std::size_t i = 0; i < pattern.size(); i += 64) pattern[i] = 'b';
    pattern[2000] = 'b';
    Measure("zeros in records", zeros.Path(), rounds, false,
            {{"4096 bytes, off in the middle", pattern}, {"100 zeros", std::string(100, '\0')}}, {0, 0});
  }
  return 0;
}
