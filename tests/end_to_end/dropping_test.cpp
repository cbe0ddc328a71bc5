#include <sys/stat.h>

#include "end_to_end/support/real_program.h"

namespace {

using bwp::test::Control;
using bwp::test::Process;
using bwp::test::Until;

class Dropping : public bwp::test::RealProgram {
 protected:
  /// Drags these files from another program's window onto the page.
  void Drop(const std::vector<std::string>& names) {
    std::vector<std::string> command{BYTEWARP_DRAG_SOURCE};
    for (const std::string& name : names) command.push_back(File(name));
    source_ = std::make_unique<Process>(
        Process::Start{.command = std::move(command), .environment = desktop_.Environment()});
    const bwp::test::Controls source(desktop_.BusAddress(), "drag_source");
    std::vector<Control> found;
    ASSERT_TRUE(Until([&] {
      found = source.In("Drag source");
      return !found.empty() && found.front().active;
    })) << source.Dump();
    const Control page = FindNow("Bytes of the Show Window");
    const auto waitFor = [&source](const char* title) {
      EXPECT_TRUE(Until([&] { return !source.In(title).empty(); }))
          << "the drag does not reach '" << title << "'";
    };
    desktop_.MoveTo(found.front().CentreX(), found.front().CentreY());
    desktop_.Press();
    desktop_.MoveTo(found.front().CentreX() + 20, found.front().CentreY());
    waitFor("Dragging");
    desktop_.MoveTo(page.CentreX(), page.CentreY());
    desktop_.MoveTo(page.CentreX() + 3, page.CentreY() + 3);
    waitFor("Welcome");
    desktop_.Release();
  }

  std::unique_ptr<Process> source_;
};

TEST_F(Dropping, OpensTheFirstFileAndRemembersItsFolder) {
  ASSERT_EQ(mkdir(File("folder").c_str(), 0700), 0);
  desktop_.Files().Write("a.bin", "aaaa");
  desktop_.Files().Write("two words é.bin", "\x42zz");
  desktop_.Files().Write("c.bin", "cccc");
  StartOn("a.bin");
  Drop({"folder", "two words é.bin", "c.bin"});
  ExpectTitle("Filename: two words é.bin (3 Bytes)");
  ExpectCell(0, 1, "42");
  ExpectCell(0, 4, "Empty");
  desktop_.Do({"search", "--onlyvisible", "--name", "^BYTEwarp", "windowactivate", "--sync"});
  EXPECT_EQ(Quit(), 0);
  EXPECT_EQ(bwp::test::ReadFile(File("Bytewarp.cfg")), "#TRUE#,4,\"" + desktop_.Files().Path() + "\"\n");
}

}  // namespace
