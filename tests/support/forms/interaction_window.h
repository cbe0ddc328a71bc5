#pragma once

#include <functional>
#include <gtest/gtest.h>
#include <string>

#include <QCoreApplication>
#include <QTest>
#include <QWidget>

#include "support/temp_folder.h"
#include "viewer/display.h"
#include "viewer/open_view_file.h"
#include "viewer/view_state.h"

namespace bwp::test {

/// A display that handles events and records its calls: replaces the main form around the panel under test.
class LiveDisplay : public Display {
 public:
  void SetRedraw(bool on) override {
    if (on && onRedraw) onRedraw();
  }
  void MoveThumb() override {
    if (onThumb) onThumb();
  }
  void ShowTitle(const std::string& text) override { title = text; }
  void ShowRuler(bool /*hex*/) override {}
  void ShowWindowTexts(const WindowTexts& texts) override { window = texts; }
  void ShowChunkTexts(const ChunkTexts& texts) override {
    chunk = texts;
    if (onChunk) onChunk(texts);
  }
  void FocusGridIfEnabled() override {
    if (onFocusGrid) onFocusGrid();
  }
  void LetEventsRun() override {
    if (onEvents) onEvents();
    QCoreApplication::processEvents();
  }
  void NextFrame() override {
    ++frames;
    if (onFrame) onFrame();
    QCoreApplication::processEvents();
  }

  int frames = 0;
  std::string title;
  WindowTexts window;
  ChunkTexts chunk;
  std::function<void()> onRedraw, onThumb, onFrame, onEvents, onFocusGrid;
  std::function<void(const ChunkTexts&)> onChunk;
};

/// A double click as a mouse sends it: two presses, the second one marked as double, and two releases.
inline void DoubleClick(QWidget* widget, const QPoint& place) {
  QTest::mouseClick(widget, Qt::LeftButton, {}, place);
  QTest::mouseDClick(widget, Qt::LeftButton, {}, place);
  QTest::mouseRelease(widget, Qt::LeftButton, {}, place);
}

/// The same at a place of a window, on whatever is there.
inline void DoubleClickAt(QWidget& window, const QPoint& place) {
  QTest::mouseDClick(window.windowHandle(), Qt::LeftButton, {}, place);
}

/// A window on an open file of the given length (PatternBytes), shown and active.
struct FileWindow {
  explicit FileWindow(std::size_t length) : bytes(PatternBytes(length)), path(folder.Write("file", bytes)) {
    OpenViewFile(state, path);
  }

  /// Shows the window and waits until it has the focus.
  void Show() {
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  }
  template <class Widget>
  Widget* Find(const char* name) {
    auto* const widget = window.findChild<Widget*>(QLatin1String(name));
    if (widget == nullptr) ADD_FAILURE() << "no " << name;
    return widget;
  }

  TempFolder folder;
  std::string bytes;
  std::string path;
  ViewState state;
  LiveDisplay display;
  QWidget window;
};

}  // namespace bwp::test
