#pragma once

#include <QLabel>

namespace bwp {

/// A label for texts that may hold long paths: it shows them literally, breaks a word that is too long for a
/// line, and keeps its width whatever the text. What does not fit into its lines is left out, and
/// the tooltip shows the whole text.
class PathLabel : public QLabel {
 public:
  /// At most that many lines; with `steady` it always has the height of all of them.
  PathLabel(int lines, bool steady, QWidget* parent);

  /// The height that the text needs at a width.
  int heightForWidth(int width) const override;
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  /// The text broken into lines; the last one shortened if there would be more.
  QStringList LinesAt(int width) const;
  QStringList Broken(const QString& paragraph, int width, int most) const;

  int lines_;
  bool steady_;
};

}  // namespace bwp
