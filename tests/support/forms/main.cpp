#include <gtest/gtest.h>

#include "app/forms/application.h"

// The form tests share one application object, the program's own; each test makes its own windows. They need
// no display.
int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  qputenv("QT_QPA_PLATFORM", "offscreen");
  bwp::Application application(argc, argv);
  return RUN_ALL_TESTS();
}
