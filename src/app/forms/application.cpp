#include "app/forms/application.h"

#include <cstdio>
#include <cstdlib>
#include <new>
#include <utility>

#include <QEvent>
#include <QMessageBox>

#include "app/forms/lean_style.h"
#include "viewer/forms/text_conversion.h"

namespace bwp {

Application::Application(int& argc, char** argv) : QApplication(argc, argv) {
  WaitUntilRead();
  setStyle(new LeanStyle);
  setApplicationName(QStringLiteral("Bytewarp"));
  setDesktopFileName(QStringLiteral("bytewarp"));
}

void Application::Guard(const std::function<void()>& work) {
  try {
    work();
  } catch (const RunTimeError& error) {
    End(error);
  } catch (const std::bad_alloc&) {
    End(MakeRunTimeError(kOutOfMemory));
  }
}

bool Application::notify(QObject* receiver, QEvent* event) {
  if (ending_ && !MayReceive(receiver, event)) return false;
  bool handled = false;
  Guard([&] { handled = QApplication::notify(receiver, event); });
  return handled;
}

void Application::End(RunTimeError error) {
  constexpr int kExitStatus = 1;
  // A second error while the first is being reported must not hide it, nor start over.
  if (std::exchange(ending_, true)) std::_Exit(kExitStatus);
  if (beforeEnd) {
    const std::string kept = beforeEnd();
    if (!kept.empty()) error.note += (error.note.empty() ? "" : "\n") + kept;
  }
  const std::string text = error.Report();
  std::fprintf(stderr, "%s\n", text.c_str());
  std::fflush(stderr);

  QMessageBox box(QMessageBox::Critical, QStringLiteral("Bytewarp"), {}, QMessageBox::Ok);
  box.setTextFormat(Qt::PlainText);
  box.setText(FromPath(text));
  report_ = &box;  // cppcheck-suppress danglingLifetime; the program ends before the box does
  box.exec();
  std::_Exit(kExitStatus);
}

// While the report is on the screen, timers and queued calls of the program's windows would run on with the
// interrupted operation half done. The toolkit's own go on: a screen reader asks through them what the report
// says.
bool Application::MayReceive(const QObject* receiver, const QEvent* event) const {
  if (event->type() != QEvent::Timer && event->type() != QEvent::MetaCall) return true;
  for (const QObject* object = receiver; object != nullptr; object = object->parent()) {
    if (object == report_) return true;
    if (object->isWidgetType()) return false;
  }
  return true;
}

}  // namespace bwp
