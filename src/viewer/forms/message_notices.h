#pragma once

#include <QWidget>

#include "viewer/notices.h"

namespace bwp {

/// Notices as modal message boxes in front of the active window. Texts are shown literally, whatever a path
/// in them contains.
class MessageNotices : public Notices {
 public:
  /// The window that boxes belong to when no window of the program is active.
  explicit MessageNotices(QWidget* window = nullptr) : window_(window) {}

  void Tell(const std::string& text, const std::string& title, Icon icon) override;
  bool Ask(const std::string& question) override;

 private:
  QWidget* Owner() const;

  QWidget* window_;
};

}  // namespace bwp
