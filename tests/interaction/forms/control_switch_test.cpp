#include "interaction/forms/control_switch.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QLineEdit>
#include <QPushButton>

#include "support/forms/interaction_window.h"

namespace {

/// Notes, when waiting events are handled, whether the window's controls had been switched already.
class WatchingDisplay : public bwp::test::LiveDisplay {
 public:
  void LetEventsRun() override {
    ++rounds;
    if (onEvents) onEvents();
  }
  int rounds = 0;
  std::function<void()> onEvents;
};

/// Notes whether its window was visible when it was switched.
class Watched : public QPushButton {
 public:
  using QPushButton::QPushButton;
  bool windowVisible = true;

 protected:
  void changeEvent(QEvent* event) override {
    if (event->type() == QEvent::EnabledChange) windowVisible = window()->isVisible();
    QPushButton::changeEvent(event);
  }
};

struct Form {
  Form() {
    button.setObjectName(QStringLiteral("button"));
    twin.setObjectName(QStringLiteral("button"));
    field.setObjectName(QStringLiteral("field"));
    entry.setObjectName(QStringLiteral("entry"));
    window.show();
  }

  QWidget window;
  Watched button{&window};
  QPushButton twin{&window};
  QLineEdit field{&window};
  QAction entry{&window};
  WatchingDisplay display;
};

TEST(ControlSwitch, SwitchesControlsAndEntriesOffAndOn) {
  Form f;
  bwp::DisableControls(f.window, f.display);
  EXPECT_FALSE(f.button.isEnabled() || f.field.isEnabled() || f.entry.isEnabled());
  EXPECT_TRUE(f.button.windowVisible);
  bwp::EnableControls(f.window, f.display);
  EXPECT_TRUE(f.button.isEnabled() && f.field.isEnabled() && f.entry.isEnabled());
}

TEST(ControlSwitch, HandlesWaitingEventsFirst) {
  Form f;
  bool enabledThen = false;
  f.display.onEvents = [&] { enabledThen = f.button.isEnabled(); };
  bwp::DisableControls(f.window, f.display);
  EXPECT_TRUE(enabledThen);
  EXPECT_EQ(f.display.rounds, 1);
}

TEST(ControlSwitch, KeepsWhatHasTheKeptControlsName) {
  Form f;
  bwp::DisableControls(f.window, f.display, true, &f.twin);
  EXPECT_TRUE(f.button.isEnabled() && f.twin.isEnabled());
  EXPECT_FALSE(f.field.isEnabled());
}

TEST(ControlSwitch, TheFormMayBeHiddenMeanwhileAndIsVisibleAfterwards) {
  Form f;
  bwp::DisableControls(f.window, f.display, false);
  EXPECT_FALSE(f.button.windowVisible);
  EXPECT_TRUE(f.window.isVisible());
}

}  // namespace
