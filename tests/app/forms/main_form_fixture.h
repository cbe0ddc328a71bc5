#pragma once

#include <gtest/gtest.h>
#include <memory>
#include <string>

#include <QAction>
#include <QApplication>
#include <QPushButton>
#include <QTableView>
#include <QTest>

#include "app/forms/main_form.h"
#include "support/scoped_variable.h"
#include "support/temp_folder.h"

namespace bwp::test {

/// The whole main form, started in a folder of the test's own.
class MainFormTest : public testing::Test {
 protected:
  void Start(const std::string& commandLine = {}) {
    form = std::make_unique<MainForm>(folder.Path());
    form->Start(commandLine);
    form->show();
    QApplication::setActiveWindow(form.get());
  }
  void StartOnFile(std::size_t length) { Start(folder.Write("file.bin", PatternBytes(length))); }

  template <typename Control>
  Control* Find(const char* name) {
    auto* const control = form->findChild<Control*>(QString::fromLatin1(name));
    EXPECT_NE(control, nullptr) << name;
    return control;
  }
  QAction* Entry(const char* name) { return Find<QAction>(name); }
  QPushButton* Button(const char* name) { return Find<QPushButton>(name); }
  QString Cell(int row, int column) {
    const QAbstractItemModel* const model = Find<QTableView>("tabe")->model();
    return model->index(row, column).data().toString();
  }
  void Press(int key) { QTest::keyClick(form.get(), static_cast<Qt::Key>(key)); }

  TempFolder folder;
  // One temporary file serves all copies of the program, and tests run side by side.
  TempFolder temporary;
  ScopedVariable variable{"TMPDIR", temporary.Path().c_str()};
  std::unique_ptr<MainForm> form;
};

}  // namespace bwp::test
