#pragma once

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <string>
#include <sys/resource.h>
#include <vector>

#include "table.h"

namespace bench {

inline double Median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

struct Job {
  std::string name;
  std::function<void()> run;
  std::vector<double> seconds = {};
  std::vector<double> processor = {};
};

/// What this program and those that it started have had of the processor: steadier than the clock on a
/// machine that does other things too.
inline double ProcessorSeconds() {
  double sum = 0;
  for (const int who : {RUSAGE_SELF, RUSAGE_CHILDREN}) {
    rusage usage = {};
    getrusage(who, &usage);
    for (const timeval& part : {usage.ru_utime, usage.ru_stime}) {
      sum += static_cast<double>(part.tv_sec) + static_cast<double>(part.tv_usec) / 1e6;
    }
  }
  return sum;
}

/// Runs the jobs in turn, so that whatever else the machine does hits all alike, each round beginning with
/// another one, so that none always follows the same job and pays for what that has left behind; prints the
/// medians, each with its speed as a multiple of the first job's. Returns the jobs with what they took.
inline std::vector<Job> RunInterleaved(const std::string& title, std::vector<Job> jobs, int rounds) {
  for (int round = 0; round < rounds; ++round) {
    for (std::size_t turn = 0; turn < jobs.size(); ++turn) {
      Job& job = jobs[(turn + static_cast<std::size_t>(round)) % jobs.size()];
      const double processor = ProcessorSeconds();
      const auto start = std::chrono::steady_clock::now();
      job.run();
      job.seconds.push_back(std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
      job.processor.push_back(ProcessorSeconds() - processor);
    }
  }
  const double seconds = Median(jobs[0].seconds);
  const double processor = Median(jobs[0].processor);
  std::printf("%-52s %18s %22s\n", title.c_str(), "clock", "processor");
  for (const Job& job : jobs) {
    const double ownSeconds = Median(job.seconds);
    const double ownProcessor = Median(job.processor);
    std::printf("  %-46s %10.1f ms (%4.2fx) %12.1f ms (%4.2fx)\n", job.name.c_str(), 1000 * ownSeconds,
                seconds / ownSeconds, 1000 * ownProcessor, processor / ownProcessor);
  }
  std::fflush(stdout);
  return jobs;
}

/// A row with a job's speed as a multiple of another one's.
inline void SpeedRow(const std::string& what, const Job& job, const Job& base, const std::string& wanted) {
  Row(what, Number(Median(base.seconds) / Median(job.seconds)),
      Number(Median(base.processor) / Median(job.processor)), wanted);
}

}  // namespace bench
