#include "app/forms/read_me.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include <QCoreApplication>
#include <QDesktopServices>
#include <QUrl>

#include "app/forms/main_form_fixture.h"
#include "support/recorders.h"
#include "support/temp_folder.h"
#include "viewer/forms/text_conversion.h"

namespace bwp::test {

/// Replaces the desktop's viewer: records which files it is asked to show.
class Viewer : public QObject {
  Q_OBJECT
 public:
  Viewer() { QDesktopServices::setUrlHandler(QStringLiteral("file"), this, "Show"); }
  ~Viewer() override { QDesktopServices::unsetUrlHandler(QStringLiteral("file")); }

  std::vector<std::string> shown;

 public Q_SLOTS:
  void Show(const QUrl& url) { shown.push_back(ToPath(url.toLocalFile())); }
};

}  // namespace bwp::test

namespace {

using bwp::test::Viewer;
using testing::ElementsAre;
using testing::IsEmpty;

class ReadMe : public testing::Test {
 protected:
  void Show() { bwp::ShowReadMe(own_.Path(), notices_, installed_ / "readme.txt"); }

  const bwp::test::TempFolder own_;
  const bwp::test::TempFolder installed_;
  bwp::test::Transcript told_;
  bwp::test::RecordedNotices notices_{told_};
};

TEST_F(ReadMe, OfTheProgramsOwnFolderComesFirst) {
  own_.Write("readme.txt", "own");
  installed_.Write("readme.txt", "installed");
  const Viewer viewer;
  Show();
  EXPECT_THAT(viewer.shown, ElementsAre(own_ / "readme.txt"));
  EXPECT_THAT(told_, IsEmpty());
}

TEST_F(ReadMe, IsTheInstalledOneWhereThatFolderHasNone) {
  installed_.Write("readme.txt", "installed");
  const Viewer viewer;
  Show();
  EXPECT_THAT(viewer.shown, ElementsAre(installed_ / "readme.txt"));
  EXPECT_THAT(told_, IsEmpty());
}

TEST_F(ReadMe, ThatIsNowhereIsTold) {
  const Viewer viewer;
  Show();
  EXPECT_THAT(viewer.shown, IsEmpty());
  EXPECT_THAT(told_, ElementsAre("tell [Error !] File not found (x)"));
}

// The offscreen platform has no way to open a file.
TEST_F(ReadMe, ThatNothingCanShowIsToldWithItsPath) {
  own_.Write("readme.txt", "own");
  Show();
  EXPECT_THAT(told_,
              ElementsAre("tell [Error !] There is no program to show " + (own_ / "readme.txt") + " (x)"));
}

TEST_F(ReadMe, IsInstalledBesideTheProgramsFolder) {
  const std::string program = QCoreApplication::applicationDirPath().toStdString();
  EXPECT_EQ(bwp::InstalledReadMe(), program.substr(0, program.rfind('/')) + "/share/bytewarp/readme.txt");
}

class ReadMeEntry : public bwp::test::MainFormTest {};

TEST_F(ReadMeEntry, ShowsTheGuideOfTheFolderThatTheProgramWasStartedIn) {
  folder.Write("readme.txt", "own");
  Start();
  const Viewer viewer;
  Entry("Menuabout")->trigger();
  EXPECT_THAT(viewer.shown, ElementsAre(folder / "readme.txt"));
}

}  // namespace

#include "read_me_test.moc"
