#pragma once

#include <algorithm>
#include <gtest/gtest.h>
#include <string>

#include <QAbstractItemView>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include "splitjoin/forms/split_join_tool.h"
#include "support/recorders.h"
#include "support/temp_folder.h"
#include "viewer/open_view_file.h"

namespace bwp::test {

/// The tool as the main form uses it, with a file of 1000 bytes open and a folder for parts and results.
class SplitJoinToolTest : public testing::Test {
 protected:
  SplitJoinToolTest() {
    state_.LastFolder = folder_.Path();
    OpenViewFile(state_, sourceFolder_.Write("source", PatternBytes(1000)));
    tool_.Show();
  }

  // A form of the tool by its name; null before it is created.
  QWidget* Form(const char* name) { return owner_.findChild<QWidget*>(QLatin1String(name)); }
  bool Visible(const char* name) { return Form(name) != nullptr && Form(name)->isVisible(); }
  template <typename Control>
  Control& In(const char* form, const char* name) {
    return *Form(form)->findChild<Control*>(QLatin1String(name));
  }
  void Press(const char* form, const char* button) {
    QTest::mouseClick(&In<QPushButton>(form, button), Qt::LeftButton);
  }
  void Type(const char* form, const char* field, const std::string& text) {
    auto& line = In<QLineEdit>(form, field);
    line.setFocus();
    line.selectAll();
    QTest::keyClicks(&line, QString::fromStdString(text));
  }
  void SetPartSize(const char* size) {
    Type("Divide", "DChsize", size);
    QTest::keyClick(&In<QLineEdit>("Divide", "DChsize"), Qt::Key_Return);
  }
  std::string Names() { return In<QLineEdit>("Fjoin", "Ftext").text().toStdString(); }
  std::string Question() {
    return In<QWidget>("Dialog", "Warning").property("text").toString().toStdString();
  }
  bool Told(const std::string& text) const {
    return std::find(seen_.begin(), seen_.end(), "tell " + text) != seen_.end();
  }
  QAbstractItemView& Files(const char* form) { return In<QAbstractItemView>(form, "Flist"); }

  const TempFolder folder_;
  const TempFolder sourceFolder_;
  Transcript seen_;
  RecordedDisplay display_{seen_};
  RecordedProgress progress_{seen_};
  RecordedNotices notices_{seen_};
  const Disk disk_;
  ViewState state_;
  QWidget owner_;
  SplitJoinTool tool_{state_, {display_, progress_, notices_, disk_}, owner_};
};

}  // namespace bwp::test
