#include "fileops/forms/buffer_buttons.h"

#include <gtest/gtest.h>

#include <QPushButton>

namespace {

TEST(BufferButtons, SayWhatTheyDo) {
  const bwp::BufferButtons buttons;
  struct Wanted {
    const QPushButton* button;
    const char* name;
    const char* text;
    const char* tip;
  };
  for (const auto& [button, name, text, tip] :
       {Wanted{buttons.cop, "cop", "Copy", "Copy Chunk to Buffer"},
        Wanted{buttons.Cut, "Cut", "Cut", "Cut Chunk to Buffer"},
        Wanted{buttons.Paste, "Paste", "Insert to MS", "Insert Buffer before Mark Start"}}) {
    EXPECT_EQ(button->objectName().toStdString(), name);
    EXPECT_EQ(button->text().toStdString(), text);
    EXPECT_EQ(button->toolTip().toStdString(), tip);
    EXPECT_EQ(button->accessibleName().toStdString(), tip);
  }
}

}  // namespace
