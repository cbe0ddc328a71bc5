#pragma once

#include <functional>
#include <vector>

#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "viewer/forms/file_lists.h"

namespace bwp {

/// What the file dialogs have in common: the lists above, rows of labelled fields below them, and the buttons
/// to their right. A dialog adds its fields and buttons from top to bottom; the first button is the default
/// one, and the button `Cancel` that ends the column only hides the dialog.
class FileDialog : public QDialog {
 public:
  FileDialog(ViewState& state, Notices& notices, QWidget* parent,
             FileLists::Selection selection = FileLists::Selection::kOne);

  FileLists& Lists() { return lists_; }

  /// Runs the dialog's action, which works on the open file or replaces it. The main form runs it only while
  /// nothing else works on that file.
  std::function<void(const std::function<void()>& action)> run = [](const std::function<void()>& action) {
    action();
  };

 protected:
  QLineEdit& AddField(const QString& name, const QString& heading);
  /// A row that shows a text.
  QLabel& AddNote(const QString& name, const QString& heading);
  QPushButton& AddButton(const QString& name, const QString& text);
  void AddCancel();

  /// Points the lists at LastFolder and shows the dialog without waiting for an answer.
  void Present();

  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  struct Row {
    QLabel* heading;
    QWidget* content;
  };

  void AddRow(QWidget& content, const QString& heading);
  int RowHeight() const;
  int HeadingWidth() const;
  int ButtonWidth() const;
  QSize SmallestSize() const;
  void Arrange();
  void ArrangeButtons();
  void ArrangeRows();
  void ArrangeLists();

  FileLists lists_;
  QLabel* driveHeading_;
  QLabel* foldersHeading_;
  QLabel* filesHeading_;
  std::vector<Row> rows_;
  std::vector<QPushButton*> buttons_;
};

}  // namespace bwp
