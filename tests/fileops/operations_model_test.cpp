#include <algorithm>
#include <gtest/gtest.h>
#include <map>
#include <rapidcheck.h>

#include "fileops/buffer_operations.h"
#include "fileops/save.h"
#include "support/workplace.h"

// Random sequences of operations on small files do what the same sequences do to texts in memory.
namespace {

using bwp::test::Workplace;

enum class Kind { kMark, kCopy, kCut, kInsert, kSaveChunk, kSaveAs };

struct Step {
  Kind kind;
  std::int64_t first, second;  // Where a mark goes, counted from the file's start and from the mark start.
  int choice;                  // Which mode, or which name.
};

constexpr const char* kModes[] = {"bms", "ams", "app", "none of them"};
constexpr const char* kNames[] = {"data", "one", "two"};

rc::Gen<Step> AnyStep() {
  return rc::gen::construct<Step>(
      rc::gen::element(Kind::kMark, Kind::kMark, Kind::kCopy, Kind::kCut, Kind::kInsert, Kind::kInsert,
                       Kind::kSaveChunk, Kind::kSaveAs),
      rc::gen::inRange<std::int64_t>(0, 60), rc::gen::inRange<std::int64_t>(0, 30), rc::gen::inRange(0, 12));
}

// Files as texts; the length that each operation leaves behind follows from the text.
struct Model {
  std::map<std::string, std::string> files;
  std::string open = "data";
  std::string buffer;
  std::int64_t markStart = 0, markEnd = 0;

  std::string& Bytes() { return files[open]; }
  bool ChunkIsThere() { return markStart < static_cast<std::int64_t>(Bytes().size()); }
  std::string Chunk() {
    return Bytes().substr(static_cast<std::size_t>(markStart),
                          static_cast<std::size_t>(markEnd - markStart + 1));
  }
  void Cut() {
    buffer = Chunk();
    Bytes().erase(static_cast<std::size_t>(markStart), buffer.size());
  }
  void Insert(const std::string& mode) {
    std::size_t at = 0;
    if (mode == "bms") at = static_cast<std::size_t>(markStart);
    if (mode == "ams") at = static_cast<std::size_t>(markStart) + 1;
    if (mode == "app") at = Bytes().size();
    Bytes().insert(std::min(at, Bytes().size()), buffer);
  }
};

class Comparison {
 public:
  explicit Comparison(const std::string& bytes)
      : place_(bytes, Workplace::RealDisk(), bwp::test::kMemory, bwp::test::kMemory) {
    place_.state.LastFolder = place_.folder.Path();
    model_.files["data"] = bytes;
    model_.markEnd = place_.state.MarkEnd;
  }

  void Do(const Step& step) {
    switch (step.kind) {
      case Kind::kMark:
        model_.markStart = step.first;
        model_.markEnd = step.first + step.second;
        place_.Mark(model_.markStart, model_.markEnd);
        break;
      case Kind::kCopy:
        if (model_.ChunkIsThere()) model_.buffer = model_.Chunk();
        CopyChunk(place_.state, place_.services);
        break;
      case Kind::kCut:
        if (model_.ChunkIsThere()) model_.Cut();
        CutChunk(place_.state, place_.services);
        break;
      case Kind::kInsert:
        Insert(kModes[step.choice % 4]);
        break;
      case Kind::kSaveChunk:
        Save(kNames[step.choice % 3], false);
        break;
      case Kind::kSaveAs:
        Save(kNames[step.choice % 3], true);
        break;
    }
    Check();
  }

 private:
  void Insert(const std::string& mode) {
    // An empty Buffer ends the program; nothing is left to compare.
    if (model_.buffer.empty()) return;
    model_.Insert(mode);
    InsertBuffer(place_.state, place_.services, mode);
  }

  void Save(const std::string& name, bool as) {
    if (name == model_.open) return;
    const bool possible = as || model_.ChunkIsThere();
    if (possible) model_.files[name] = as ? model_.Bytes() : model_.Chunk();
    if (possible && as) model_.open = name;
    SaveUnderTypedName(place_.state, place_.services,
                       as ? SaveAsTask(place_.state) : SaveChunkTask(place_.state), name);
  }

  void Check() {
    std::vector<std::string> names;
    for (const auto& [name, bytes] : model_.files) {
      names.push_back(name);
      RC_ASSERT(bwp::test::ReadFile(place_.folder / name) == bytes);
    }
    RC_ASSERT(place_.folder.Names() == names);
    RC_ASSERT(place_.temporary.Names().empty());
    RC_ASSERT(place_.state.OpenFile == place_.folder / model_.open);
    RC_ASSERT(place_.state.FLen == static_cast<std::int64_t>(model_.Bytes().size()));
    RC_ASSERT(place_.state.BufferData == model_.buffer);
    RC_ASSERT(place_.state.MarkStart == model_.markStart);
    RC_ASSERT(place_.state.MarkEnd == model_.markEnd);
    RC_ASSERT(!place_.progress.Aborted());
    RC_ASSERT(!place_.progress.Visible());
  }

  Workplace place_;
  Model model_;
};

TEST(Operations, InAnyOrderDoWhatTheyDoToTextsInMemory) {
  EXPECT_TRUE(rc::check([] {
    Comparison comparison(*rc::gen::container<std::string>(rc::gen::arbitrary<char>()));
    for (const Step& step : *rc::gen::container<std::vector<Step>>(AnyStep())) comparison.Do(step);
  }));
}

}  // namespace
