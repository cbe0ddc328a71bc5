#include "app/forms/read_me.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QDir>
#include <QUrl>

#include "viewer/forms/text_conversion.h"
#include "viewer/paths.h"

namespace bwp {

std::string InstalledReadMe() {
  const QString program = QCoreApplication::applicationDirPath();
  return ToPath(QDir::cleanPath(program + QStringLiteral("/" BYTEWARP_DATA_DIR "/readme.txt")));
}

void ShowReadMe(const std::string& progFolder, Notices& notices, const std::string& installed) {
  const std::string own = progFolder + "readme.txt";
  const std::string& path = funzioni::FileExists(own) ? own : installed;
  if (!funzioni::FileExists(path)) {
    notices.Tell("File not found", kErrorTitle, Notices::Icon::kCritical);
  } else if (!QDesktopServices::openUrl(QUrl::fromLocalFile(FromPath(path)))) {
    notices.Tell("There is no program to show " + path, kErrorTitle, Notices::Icon::kCritical);
  }
}

}  // namespace bwp
