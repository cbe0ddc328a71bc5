#pragma once

#include <string>

namespace bwp {

/// How a long operation shows its progress and learns of Cancel: `Progform` in the program, a recorder in
/// the tests.
class Progress {
 public:
  virtual ~Progress() = default;

  virtual void SetCaption(const std::string& caption) = 0;
  /// The label `Lab`; paths in it are byte strings.
  virtual void SetLabel(const std::string& label) = 0;
  virtual std::string Label() const = 0;
  /// The bar, 0 to 100, not rounded.
  virtual void SetBar(float percent) = 0;
  virtual void Show() = 0;
  virtual void Hide() = 0;
  /// Handles the events that wait; this is where a press of Cancel is seen.
  virtual void LetEventsRun() = 0;

  /// The abort flag: set by Cancel alone, cleared by every operation when it ends.
  virtual bool Aborted() const = 0;
  virtual void ClearAbort() = 0;
};

}  // namespace bwp
