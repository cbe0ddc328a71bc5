#include <gtest/gtest.h>

#include <QApplication>

// The form tests share one application object; each test makes its own windows. They need no display.
int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
