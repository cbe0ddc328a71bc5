#pragma once

#include <functional>
#include <string>

#include <QObject>

#include "viewer/descriptor.h"

namespace bwp {

/// Tells when names come to a folder or go from it. Unlike the toolkit's watcher it takes any path, also one
/// that is no text. A folder that cannot be watched is silently not watched.
class FolderWatch : public QObject {
 public:
  FolderWatch(const std::string& folder, std::function<void()> onChange, QObject* parent = nullptr);

 private:
  /// Takes the events that wait; what they say does not matter.
  void Drain() const;

  Descriptor descriptor_;
};

}  // namespace bwp
