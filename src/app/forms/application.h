#pragma once

#include <functional>
#include <string>

#include <QApplication>
#include <QEvent>

#include "app/forms/early_work.h"
#include "viewer/run_time_error.h"

namespace bwp {

/// The application object, which catches every RunTimeError that nothing else caught. It reports the error
/// and ends the program there and then, however deep in nested event processing it was thrown, so that no
/// further line of the interrupted operation runs. Any other exception is reported as error 5, a lack of
/// memory as 7.
///
/// EarlyWork is the first base: its thread must run before QApplication connects to the display.
class Application : private EarlyWork, public QApplication {
 public:
  Application(int& argc, char** argv);

  /// Called once before the report; what it returns (full sentences, or nothing) is added to it. It saves
  /// bytes that exist nowhere else.
  std::function<std::string()> beforeEnd;

  /// Runs code that no event started, with the same error handling as an event's handler.
  void Guard(const std::function<void()>& work);

  bool notify(QObject* receiver, QEvent* event) override;

 private:
  [[noreturn]] void End(RunTimeError error);
  bool MayReceive(const QObject* receiver, QEvent::Type type) const;

  bool ending_ = false;
  QObject* report_ = nullptr;
};

}  // namespace bwp
