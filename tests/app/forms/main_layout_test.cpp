#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QProcess>
#include <QTextDocument>
#include <QTextEdit>

#include "app/forms/main_form_fixture.h"

namespace {

std::string NameOf(const QWidget& widget) {
  if (!widget.objectName().isEmpty()) return widget.objectName().toStdString();
  if (const auto* label = qobject_cast<const QLabel*>(&widget)) return label->text().toStdString();
  if (const auto* group = qobject_cast<const QGroupBox*>(&widget)) return group->title().toStdString();
  return widget.metaObject()->className();
}

// The extra width that a text needs inside a frame.
constexpr int kRoomAround = 6;

void ExpectRoomForText(const QWidget& widget) {
  if (const auto* field = qobject_cast<const QLineEdit*>(&widget)) {
    EXPECT_GE(field->width(), field->fontMetrics().horizontalAdvance(field->text()) + kRoomAround)
        << NameOf(widget);
    EXPECT_GE(field->height(), field->fontMetrics().height()) << NameOf(widget);
  } else if (const auto* box = qobject_cast<const QTextEdit*>(&widget)) {
    EXPECT_GE(box->viewport()->width(), box->document()->idealWidth()) << NameOf(widget);
    EXPECT_GE(box->viewport()->height(), box->document()->size().height()) << NameOf(widget);
  } else if (const auto* button = qobject_cast<const QAbstractButton*>(&widget);
             qobject_cast<const QLabel*>(&widget) != nullptr ||
             (button != nullptr && !button->text().isEmpty())) {
    EXPECT_GE(widget.width(), widget.sizeHint().width()) << NameOf(widget);
    EXPECT_GE(widget.height(), widget.sizeHint().height()) << NameOf(widget);
  } else if (qobject_cast<const QGroupBox*>(&widget) != nullptr) {
    EXPECT_GE(widget.width(), widget.minimumSizeHint().width()) << NameOf(widget);
    EXPECT_GE(widget.height(), widget.minimumSizeHint().height()) << NameOf(widget);
  }
}

// Expects every widget inside its parent, beside its neighbours, with room for its text; returns how many
// widgets were checked.
int ExpectWhole(const QWidget& parent) {
  int looked = 0;
  std::vector<const QWidget*> before;
  for (const QWidget* child : parent.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
    if (!child->isVisible() || child->isWindow()) continue;
    EXPECT_TRUE(parent.rect().contains(child->geometry()))
        << NameOf(*child) << " sticks out of " << NameOf(parent);
    ExpectRoomForText(*child);
    for (const QWidget* other : before) {
      EXPECT_FALSE(other->geometry().intersects(child->geometry()))
          << NameOf(*other) << " on " << NameOf(*child);
    }
    before.push_back(child);
    ++looked;
    if (qobject_cast<const QAbstractScrollArea*>(child) == nullptr) looked += ExpectWhole(*child);
  }
  return looked;
}

class MainLayout : public bwp::test::MainFormTest {
 protected:
  // With the longest texts that the boxes ever show.
  void StartOnTheLongestFile() {
    const std::string path = folder.Write("longest", "");
    std::filesystem::resize_file(path, std::uintmax_t{2'147'483'647});
    Start(path);
    Press(Qt::Key_End);
  }
  void Resize(const QSize& size) {
    form->resize(size);
    QApplication::processEvents();
  }
};

TEST_F(MainLayout, IsWholeAtItsSmallestSize) {
  StartOnTheLongestFile();
  Resize({1, 1});
  EXPECT_GE(form->width(), form->menuBar()->sizeHint().width());
  EXPECT_GT(ExpectWhole(*form), 40);
  QTest::mouseClick(Button("edit"), Qt::LeftButton);
  EXPECT_GT(ExpectWhole(*form), 40);
}

TEST_F(MainLayout, IsWholeWhenItIsLarge) {
  StartOnTheLongestFile();
  Resize({2400, 1500});
  EXPECT_GT(ExpectWhole(*form), 40);
}

TEST_F(MainLayout, IsDrawnAtTheScaleOfTheScreen) {
  StartOnTheLongestFile();
  const double scale = qEnvironmentVariable("QT_SCALE_FACTOR", QStringLiteral("1")).toDouble();
  EXPECT_EQ(form->grab().devicePixelRatio(), scale);
}

// The scale is set per process, so the tests run again in another one.
TEST(MainForms, AreWholeAtTwiceTheScale) {
  QProcess process;
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert(QStringLiteral("QT_SCALE_FACTOR"), QStringLiteral("2"));
  process.setProcessEnvironment(environment);
  process.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--gtest_filter=MainLayout.*")});
  ASSERT_TRUE(process.waitForFinished(60'000));
  const std::string output = process.readAllStandardOutput().toStdString();
  EXPECT_EQ(process.exitCode(), 0) << output;
  EXPECT_THAT(output, testing::HasSubstr("PASSED  ] 3 tests"));
}

}  // namespace
