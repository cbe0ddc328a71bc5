#include <gtest/gtest.h>
#include <vector>

#include <QTimer>

#include "app/forms/main_form_fixture.h"

namespace {

using bwp::test::PatternBytes;

// A held key on the whole form, with its real display.
class HeldKey : public bwp::test::MainFormTest {
 protected:
  /// Records the start of every page that is painted, and runs an action once, when the page at `at` is
  /// painted.
  class Painted : public QObject {
   public:
    Painted(bwp::MainForm& form, QWidget& page) : form_(form), page_(page) { page.installEventFilter(this); }
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
      if (event->type() != QEvent::Paint) return false;
      const std::int64_t start = form_.State().SWStart;
      if (starts.empty() || starts.back() != start) starts.push_back(start);
      if (start == at && action) QTimer::singleShot(0, &page_, std::exchange(action, nullptr));
      return false;
    }
    std::vector<std::int64_t> starts;
    std::int64_t at = 0;
    std::function<void()> action;

   private:
    bwp::MainForm& form_;
    QWidget& page_;
  };

  /// Holds the Down key until the action ends the scrolling, which runs when that page is painted.
  void HoldDownUntil(std::int64_t start, const std::function<void()>& action) {
    painted = std::make_unique<Painted>(*form, *Find<QTableView>("tabe")->viewport());
    painted->at = start;
    painted->action = action;
    QTest::keyPress(form.get(), Qt::Key_Down);
    auto* const timer = Find<QTimer>("TimVSCR");
    ASSERT_TRUE(timer->isActive());
    QTimerEvent elapsed(timer->timerId());
    QCoreApplication::sendEvent(timer, &elapsed);
  }

  std::unique_ptr<Painted> painted;
};

TEST_F(HeldKey, EveryPageThatIsPassedIsPainted) {
  folder.Write("Bytewarp.cfg", "#TRUE#,0,\"/\"\n");
  StartOnFile(50'000);
  HoldDownUntil(12 * 16, [this] { QTest::keyRelease(form.get(), Qt::Key_Down); });
  QCoreApplication::processEvents();
  std::vector<std::int64_t> passed;
  for (std::int64_t start = 16; start <= form->State().SWStart; start += 16) passed.push_back(start);
  EXPECT_EQ(painted->starts, passed);
  EXPECT_EQ(form->State().SWStart, 13 * 16) << "coming up, the key takes one more step";
}

TEST_F(HeldKey, ClickingEditStopsThePageAndBeginsACleanMode) {
  StartOnFile(50'000);
  HoldDownUntil(5 * 16, [this] { QTest::mouseClick(Button("edit"), Qt::LeftButton); });
  ASSERT_TRUE(form->State().EditMode);
  const std::int64_t start = form->State().SWStart;
  EXPECT_EQ(start, 5 * 16);
  EXPECT_FALSE(form->State().AutoScroll);
  EXPECT_EQ(form->State().ScrollStep, 0);
  QWidget* const page = Find<QWidget>("tabe");
  QTest::keyClicks(page, QStringLiteral("5"));
  QTest::keyRelease(page, Qt::Key_Down);
  EXPECT_EQ(Cell(0, 1), QStringLiteral("5"));
  EXPECT_EQ(form->State().SWStart, start);
  const std::string bytes = PatternBytes(50'000);
  for (int row = 1; row < 32; ++row) {
    const auto byte = static_cast<unsigned char>(bytes[static_cast<std::size_t>(start + row * 16)]);
    EXPECT_EQ(Cell(row, 1).toInt(nullptr, 16), byte) << row;
  }
}

}  // namespace
