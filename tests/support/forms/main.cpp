#include <gtest/gtest.h>

#include <QApplication>

// The form tests share one application object; each test makes its own windows.
int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  const QApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
