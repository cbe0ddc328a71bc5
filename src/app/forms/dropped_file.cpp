#include "app/forms/dropped_file.h"

#include <QDropEvent>
#include <QMimeData>
#include <QUrl>

#include "viewer/paths.h"

namespace bwp {
namespace {

// Empty for a URL that is not a local file.
std::string LocalPath(const QUrl& url) {
  if (!url.isLocalFile()) return {};
  return QByteArray::fromPercentEncoding(url.path(QUrl::FullyEncoded).toLatin1()).toStdString();
}

}  // namespace

std::optional<std::string> AcceptFile(QDropEvent& event) {
  for (const QUrl& url : event.mimeData()->urls()) {
    const std::string path = LocalPath(url);
    if (!funzioni::FileExists(path)) continue;
    event.setDropAction(Qt::CopyAction);
    event.accept();
    return path;
  }
  event.ignore();
  return std::nullopt;
}

}  // namespace bwp
