#include "viewer/forms/folder_watch.h"

#include <array>
#include <sys/inotify.h>
#include <unistd.h>
#include <utility>

#include <QSocketNotifier>

namespace bwp {

FolderWatch::FolderWatch(const std::string& folder, std::function<void()> onChange, QObject* parent)
    : QObject(parent), descriptor_(inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {
  if (!descriptor_.IsOpen()) return;
  constexpr std::uint32_t kNames =
      IN_CREATE | IN_DELETE | IN_MOVED_FROM | IN_MOVED_TO | IN_DELETE_SELF | IN_MOVE_SELF | IN_ONLYDIR;
  inotify_add_watch(descriptor_.Number(), folder.c_str(), kNames);
  auto* waiting = new QSocketNotifier(descriptor_.Number(), QSocketNotifier::Read, this);
  connect(waiting, &QSocketNotifier::activated, this, [this, onChange = std::move(onChange)] {
    Drain();
    onChange();
  });
}

void FolderWatch::Drain() const {
  std::array<char, 4096> events = {};
  while (read(descriptor_.Number(), events.data(), events.size()) > 0) {
  }
}

}  // namespace bwp
