#include <filesystem>
#include <gtest/gtest.h>

#include <QDropEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QTextEdit>
#include <QUrl>

#include "app/forms/main_form_fixture.h"
#include "support/forms/answer_box.h"

namespace {

using bwp::test::AnswerBoxes;

class Dropping : public bwp::test::MainFormTest {};

// What the source of a drag learns.
struct Answer {
  bool accepted = false;
  Qt::DropAction action = Qt::IgnoreAction;
};

// As the window does: the nearest widget that takes drops gets the drag, and passes it on if it does not want
// it.
Answer Drop(QWidget* target, const QMimeData& data, Qt::DropAction proposed = Qt::CopyAction) {
  while (!target->acceptDrops()) target = target->parentWidget();
  QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
  enter.setDropAction(proposed);
  QApplication::sendEvent(target, &enter);
  if (!enter.isAccepted()) return {};
  QDropEvent drop(QPointF(5, 5), Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
  drop.setDropAction(proposed);
  QApplication::sendEvent(target, &drop);
  return {drop.isAccepted(), drop.dropAction()};
}

Answer Drop(QWidget* target, const QList<QUrl>& urls, Qt::DropAction proposed = Qt::CopyAction) {
  QMimeData data;
  data.setUrls(urls);
  return Drop(target, data, proposed);
}

QUrl UrlOf(const std::string& path) {
  return QUrl(QString::fromLatin1("file://" + QByteArray::fromStdString(path).toPercentEncoding("/")));
}

TEST_F(Dropping, OpensTheFirstRegularFileOfThoseThatAreDropped) {
  Start();
  const std::string odd = folder.Write("odd \xFF\" name", "first");
  Drop(form.get(),
       {UrlOf(folder.Path()), UrlOf(folder / "none"), UrlOf(odd), UrlOf(folder.Write("second", "2"))});
  EXPECT_EQ(form->State().OpenFile, odd);
  EXPECT_EQ(form->State().LastFolder, folder.Path());
  EXPECT_EQ(Cell(0, 1), QStringLiteral("66"));
  EXPECT_TRUE(Button("cop")->isEnabled());
}

TEST_F(Dropping, ADropOfNoFileChangesNothing) {
  StartOnFile(100);
  Drop(form.get(), {UrlOf(folder.Path()), QUrl(QStringLiteral("https://example.org/file"))});
  EXPECT_EQ(form->State().OpenFile, folder / "file.bin");
}

TEST_F(Dropping, ADropWhileThePageIsEditedChangesNothing) {
  StartOnFile(100);
  QTest::mouseClick(Button("edit"), Qt::LeftButton);
  Drop(form.get(), {UrlOf(folder.Write("other", "other"))});
  EXPECT_EQ(form->State().OpenFile, folder / "file.bin");
  QTest::mouseClick(Button("Cancel"), Qt::LeftButton);
  EXPECT_TRUE(Button("cop")->isEnabled());
}

TEST_F(Dropping, TakesOnlyADragThatBringsARegularFile) {
  StartOnFile(100);
  EXPECT_FALSE(Drop(form.get(), {UrlOf(folder.Path())}).accepted);
  EXPECT_TRUE(Drop(form.get(), {UrlOf(folder.Path()), UrlOf(folder / "file.bin")}).accepted);
}

TEST_F(Dropping, NeverTakesTheFileAwayFromItsSource) {
  Start();
  const Answer answer = Drop(form.get(), {UrlOf(folder.Write("a.bin", "abc"))}, Qt::MoveAction);
  EXPECT_TRUE(answer.accepted);
  EXPECT_EQ(answer.action, Qt::CopyAction);
}

TEST_F(Dropping, OntoATextBoxOpensTheFileAndTypesNothing) {
  for (const char* name : {"HStart", "HEnd", "Dstart", "Dend", "MHStart", "mdstart", "Mdsize", "Atext"}) {
    StartOnFile(100);
    Drop(Find<QWidget>(name), {UrlOf(folder.Write("other.bin", "other"))});
    EXPECT_EQ(form->State().OpenFile, folder / "other.bin") << name;
  }
  EXPECT_EQ(Find<QLineEdit>("Atext")->text(), QString());
}

TEST_F(Dropping, ASearchFieldStillTakesDraggedText) {
  StartOnFile(100);
  QMimeData data;
  data.setText(QStringLiteral("term"));
  EXPECT_TRUE(Drop(Find<QWidget>("Atext"), data).accepted);
  EXPECT_EQ(Find<QLineEdit>("Atext")->text(), QStringLiteral("term"));
}

TEST_F(Dropping, ShowsAnEmptyFileWithNoBytes) {
  StartOnFile(100);
  Drop(form.get(), {UrlOf(folder.Write("empty", ""))});
  EXPECT_EQ(form->State().OpenFile, folder / "empty");
  EXPECT_EQ(Cell(0, 1), QString());
  EXPECT_TRUE(form->windowTitle().contains(QStringLiteral("empty (0 Bytes)")));
}

TEST_F(Dropping, AFileOverTheLimitIsToldAndWhatWasOpenStays) {
  StartOnFile(100);
  const std::string large = folder.Write("large", "");
  std::filesystem::resize_file(large, std::uintmax_t{2'147'483'648});
  const AnswerBoxes boxes;
  Drop(form.get(), {UrlOf(large)});
  EXPECT_EQ(boxes.Lines(),
            std::vector<std::string>{"[Error !] File is too large (the limit is 2.147.483.647 bytes) (x)"});
  EXPECT_EQ(form->State().OpenFile, folder / "file.bin");
  EXPECT_EQ(form->State().LastFolder, "/");
}

TEST_F(Dropping, EndsTyping) {
  StartOnFile(4096);
  QTest::keyClicks(Find<QLineEdit>("Dstart"), QStringLiteral("77"));
  ASSERT_TRUE(form->State().FieldTyping);
  Drop(form.get(), {UrlOf(folder.Write("other.bin", "other"))});
  EXPECT_FALSE(form->State().FieldTyping);
  EXPECT_EQ(Cell(0, 1), QStringLiteral("6F"));
  EXPECT_EQ(Find<QLineEdit>("Dstart")->text(), QStringLiteral("0"));
}

TEST_F(Dropping, AFileThatVanishesDuringTheDragChangesNothing) {
  StartOnFile(100);
  const std::string path = folder.Write("gone", "x");
  QMimeData data;
  data.setUrls({UrlOf(path)});
  QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(form.get(), &enter);
  EXPECT_TRUE(enter.isAccepted());
  std::filesystem::remove(path);
  QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(form.get(), &drop);
  EXPECT_FALSE(drop.isAccepted());
  EXPECT_EQ(form->State().OpenFile, folder / "file.bin");
}

}  // namespace
