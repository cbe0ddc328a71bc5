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

/// The processor time of this program and of those it has started: steadier than the clock on a busy machine.
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

/// How long some work takes by the clock.
inline double Seconds(const std::function<void()>& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

/// Some work, and how long it took, run by run.
struct Job {
  std::string name;
  std::function<void()> run;
  std::vector<double> seconds = {};
  std::vector<double> processor = {};

  void RunOnce() {
    const double spent = ProcessorSeconds();
    seconds.push_back(Seconds(run));
    processor.push_back(ProcessorSeconds() - spent);
  }
};

/// Runs the jobs in turn, so that whatever else the machine does affects all of them alike. Each pair of
/// rounds begins with another job, and every other round goes backwards: no job always follows the same one
/// and pays for pages that one has left to be written back. Prints the medians, each with its speed as a
/// multiple of the first job's, and returns the jobs with their times.
inline std::vector<Job> RunInterleaved(const std::string& title, std::vector<Job> jobs, int rounds) {
  for (std::size_t round = 0; round < static_cast<std::size_t>(rounds); ++round) {
    for (std::size_t turn = 0; turn < jobs.size(); ++turn) {
      const std::size_t place = (turn + round / 2) % jobs.size();
      jobs[round % 2 == 0 ? place : jobs.size() - 1 - place].RunOnce();
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

/// Prints a row with a job's speed as a multiple of another one's.
inline void SpeedRow(const std::string& what, const Job& job, const Job& base, const std::string& wanted) {
  Row(what, Number(Median(base.seconds) / Median(job.seconds)),
      Number(Median(base.processor) / Median(job.processor)), wanted);
}

/// Prints a row with a job's time as a multiple of another one's.
inline void TimeRow(const std::string& what, const Job& job, const Job& base, const std::string& wanted) {
  SpeedRow(what, base, job, wanted);
}

}  // namespace bench
