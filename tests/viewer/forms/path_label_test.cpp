#include "viewer/forms/path_label.h"

#include <gtest/gtest.h>

#include <QImage>

namespace {

using bwp::PathLabel;

int Lines(const QString& text, int most) {
  PathLabel label(most, false, nullptr);
  label.setText(text);
  return label.heightForWidth(200) / label.fontMetrics().lineSpacing();
}

// Whether anything is drawn in that line.
bool HasInk(PathLabel& label, int line) {
  const QImage image = label.grab().toImage();
  const int height = label.fontMetrics().lineSpacing();
  for (int y = line * height; y < (line + 1) * height; ++y) {
    for (int x = 0; x < image.width(); ++x) {
      if (image.pixel(x, y) != image.pixel(image.width() - 1, image.height() - 1)) return true;
    }
  }
  return false;
}

TEST(PathLabel, BreaksTheLineWhereTheTextDoes) {
  EXPECT_EQ(Lines(QStringLiteral("a"), 4), 1);
  EXPECT_EQ(Lines(QStringLiteral("a\nb"), 4), 2);
  EXPECT_EQ(Lines(QStringLiteral("\na\nb\nc"), 4), 4);
  EXPECT_EQ(Lines(QStringLiteral("a\nb\nc"), 2), 2);
}

TEST(PathLabel, ALongLineLeavesThoseAfterItTheirPlace) {
  const QString lengthy(500, QLatin1Char('x'));
  EXPECT_EQ(Lines(lengthy, 4), 4);
  PathLabel label(4, true, nullptr);
  label.setText(QStringLiteral("\n") + lengthy + QStringLiteral("\n") + lengthy + QStringLiteral("\nc"));
  label.resize(200, 5 * label.fontMetrics().lineSpacing());
  EXPECT_FALSE(HasInk(label, 0));
  for (const int line : {1, 2, 3}) EXPECT_TRUE(HasInk(label, line)) << line;
}

}  // namespace
