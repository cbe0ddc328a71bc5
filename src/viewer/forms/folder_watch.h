#pragma once

#include <functional>
#include <string>

#include <QObject>

#include "viewer/descriptor.h"

namespace bwp {

/// Reports when names appear in a folder or disappear from it. Unlike the toolkit's watcher it takes any
/// path, even one that is not valid UTF-8. A folder that cannot be watched is silently not watched.
class FolderWatch : public QObject {
 public:
  FolderWatch(const std::string& folder, std::function<void()> onChange, QObject* parent = nullptr);

 private:
  /// Discards the pending events; what they say does not matter.
  void Drain() const;

  Descriptor descriptor_;
};

}  // namespace bwp
