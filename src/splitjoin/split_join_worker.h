#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "fileops/services.h"
#include "splitjoin/split_join_job.h"
#include "splitjoin/split_plan.h"
#include "viewer/view_state.h"

namespace bwp {

/// The tool's windows that the worker hides.
class SplitJoinWindows {
 public:
  virtual ~SplitJoinWindows() = default;
  virtual void HideDivide() = 0;
  virtual void HideFsel() = 0;
  virtual void HideFjoin() = 0;
};

/// Carries out the jobs of the split and join tool. It runs on a timer and never inside a button's click, so
/// that the window with the question is gone before the copying begins.
class SplitJoinWorker {
 public:
  SplitJoinWorker(ViewState& state, const Services& services, const SplitPlan& plan, SplitJoinJob& job,
                  SplitJoinWindows& windows);

  /// Does nothing unless the job is confirmed. Then it does all of it, or the deletion that comes first, and
  /// confirms the rest for the next tick. A tick in the middle of a job does nothing. Throws RunTimeError;
  /// what has been written by then stays.
  void Tick();

 private:
  void Split();
  void WriteParts(std::int64_t partSize);
  void DeleteOldParts();
  void Join();
  void WriteResult(const std::vector<std::string>& names, const std::string& folder,
                   const std::string& destination);
  void ShowResult(const std::string& destination);
  void DeleteDestination();
  std::vector<std::string> NamesToJoin() const;
  void RefuseOwnSource(const std::vector<std::string>& names) const;

  ViewState& state_;
  Services services_;
  const SplitPlan& plan_;
  SplitJoinJob& job_;
  SplitJoinWindows& windows_;
};

}  // namespace bwp
