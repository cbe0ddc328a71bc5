#include "app/forms/application.h"

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <new>

#include <QMessageBox>

#include "app/forms/lean_style.h"
#include "viewer/forms/text_conversion.h"

namespace bwp {
namespace {

// An open menu would keep mouse and keyboard input from the report.
void ClosePopups() {
  for (const QWidget* last = nullptr; QWidget* const popup = QApplication::activePopupWidget();
       last = popup) {
    if (popup == last) return;
    popup->hide();
  }
}

}  // namespace

Application::Application(int& argc, char** argv) : QApplication(argc, argv) {
  WaitUntilDone();
  setStyle(new LeanStyle);  // NOLINT(clang-analyzer-cplusplus.NewDeleteLeaks): the application owns its style
  setApplicationName(QStringLiteral("Bytewarp"));
  setDesktopFileName(QStringLiteral("org.bytewarp.Bytewarp"));
}

void Application::Guard(const std::function<void()>& work) {
  try {
    work();
  } catch (const RunTimeError& error) {
    if (!ending_) End(error);
  } catch (const std::bad_alloc&) {
    if (!ending_) End(MakeRunTimeError(kOutOfMemory));
  } catch (const std::exception& error) {
    // A bug in the program: fixing it needs more than the report says.
    std::fprintf(stderr, "%s\n", error.what());
    if (!ending_) End(MakeRunTimeError(kInvalidProcedureCall));
  }
}

bool Application::notify(QObject* receiver, QEvent* event) {
  if (report_ != nullptr && !MayReceive(receiver, event->type())) {
    event->ignore();
    return false;
  }
  bool handled = false;
  Guard([&] { handled = QApplication::notify(receiver, event); });
  return handled;
}

void Application::End(RunTimeError error) {
  constexpr int kExitStatus = 1;
  // From here on further errors are ignored: they must not hide the first one, nor end the program before it
  // was read.
  ending_ = true;
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
  ClosePopups();
  box.exec();
  std::_Exit(kExitStatus);
}

// While the report is shown, the program's windows get only the events that painting needs: handlers of
// timers, keys or a lost focus would run with the interrupted operation half done. Events refused here reach
// no event filter either. The toolkit's own objects still get theirs: a screen reader reads the report
// through them.
bool Application::MayReceive(const QObject* receiver, QEvent::Type type) const {
  switch (type) {
    case QEvent::Paint:
    case QEvent::UpdateRequest:
    case QEvent::UpdateLater:
    case QEvent::Resize:
    case QEvent::Move:
    case QEvent::LayoutRequest:
      return true;
    default:
      break;
  }
  bool belongsToAWindow = false;
  for (const QObject* object = receiver; object != nullptr; object = object->parent()) {
    if (object == report_) return true;
    belongsToAWindow = belongsToAWindow || object->isWidgetType();
  }
  return !belongsToAWindow;
}

}  // namespace bwp
