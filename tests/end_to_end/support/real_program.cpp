#include "end_to_end/support/real_program.h"

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <fstream>

namespace bwp::test {
namespace {

bool StartsWith(const std::string& text, const std::string& start) {
  return text.rfind(start, 0) == 0;
}

// The main window shows a file's name and size in its title; no other title starts so.
constexpr const char* kMainTitle = "BYTEwarp | ";
constexpr const char* kPageName = "Bytes of the Show Window";

}  // namespace

RealProgram::RealProgram() = default;

RealProgram::~RealProgram() {
  if (HasFailure()) KeepTraces();
}

void RealProgram::KeepTraces() const {
  const auto* const test = testing::UnitTest::GetInstance()->current_test_info();
  const std::string base = std::string(BYTEWARP_TRACES "/") + test->test_suite_name() + "." + test->name();
  std::filesystem::create_directories(BYTEWARP_TRACES);
  desktop_.TakePicture(base + ".png");
  std::ofstream(base + ".txt") << (controls_ ? controls_->Dump() : "") << "\nprinted:\n" << Output();
}

void RealProgram::RememberFolderOfFiles() const {
  desktop_.Files().Write("Bytewarp.cfg", "#TRUE#,4,\"" + desktop_.Files().Path() + "\"\n");
}

void RealProgram::Start(const std::vector<std::string>& arguments) {
  std::vector<std::string> command{BYTEWARP_PROGRAM};
  command.insert(command.end(), arguments.begin(), arguments.end());
  program_ = std::make_unique<Process>(Process::Start{.command = std::move(command),
                                                      .environment = desktop_.Environment(),
                                                      .folder = desktop_.Files().Path(),
                                                      .output = own_ / "printed"});
  if (!controls_) controls_ = std::make_unique<Controls>(desktop_.BusAddress(), "Bytewarp");
}

void RealProgram::StartOn(const std::string& name) {
  Start({name});
  ExpectTitle("Filename: " + name + " (");
  EXPECT_TRUE(Until([this] { return FindNow(kPageName).role == "table"; }));
}

int RealProgram::Quit() {
  desktop_.Key("ctrl+q");
  return program_->WaitForEnd();
}

std::string RealProgram::Title() const {
  const std::string titles =
      desktop_.Do({"search", "--onlyvisible", "--name", "^BYTEwarp", "getwindowname", "%@"});
  return titles.substr(0, titles.find('\n'));
}

void RealProgram::ExpectTitle(const std::string& part) const {
  EXPECT_TRUE(Until([&] { return Title().find(part) != std::string::npos; }))
      << "the title is '" << Title() << "', wanted in it: '" << part << "'";
}

Control RealProgram::FindNow(const std::string& name, const std::string& window) const {
  const std::string title = window.empty() ? kMainTitle : window;
  for (const Control& candidate : controls_->Windows()) {
    if (!StartsWith(candidate.name, title)) continue;
    for (Control& control : controls_->In(candidate.name)) {
      if (control.depth > 0 && control.name == name) return control;
    }
  }
  return {};
}

Control RealProgram::Find(const std::string& name, const std::string& window) const {
  Control control;
  // A window that has just come up may still be on its way to where the window manager wants it.
  EXPECT_TRUE(Until([&] {
    const Control before = control;
    control = FindNow(name, window);
    return control.enabled && control.CentreX() == before.CentreX() && control.CentreY() == before.CentreY();
  })) << "no '"
      << name << "' in '" << window << "'";
  return control;
}

void RealProgram::ClickOn(const std::string& name, const std::string& window) const {
  const Control control = Find(name, window);
  desktop_.Click(control.CentreX(), control.CentreY());
}

std::string RealProgram::StopAtWindow(const std::string& title) const {
  std::string window;
  EXPECT_TRUE(Until([&] {
    window = desktop_.Do({"search", "--onlyvisible", "--name", "^" + title});
    return !window.empty();
  })) << "no window '"
      << title << "'";
  program_->Kill(SIGSTOP);
  return window.substr(0, window.find('\n'));
}

void RealProgram::GoOn() const {
  program_->Kill(SIGCONT);
}

void RealProgram::Choose(const std::string& menu, const std::string& entry) const {
  ClickOn(menu);
  Control found;
  EXPECT_TRUE(Until([&] {
    found = FindNow(entry);
    return found.enabled && found.width > 0;
  })) << "no '"
      << entry << "' in the menu '" << menu << "'";
  desktop_.Click(found.CentreX(), found.CentreY());
}

void RealProgram::Fill(const std::string& field, const std::string& text, const std::string& key,
                       const std::string& window) const {
  ClickOn(field, window);
  // Until the window manager has moved the focus, keys go elsewhere.
  EXPECT_TRUE(Until([&] { return FindNow(field, window).focused; })) << "'" << field << "' gets no focus";
  desktop_.Key("ctrl+a");
  desktop_.Type(text);
  if (!key.empty()) desktop_.Key(key);
}

std::string RealProgram::TextOf(const std::string& field, const std::string& window) const {
  return FindNow(field, window).text;
}

void RealProgram::ExpectText(const std::string& field, const std::string& text,
                             const std::string& window) const {
  EXPECT_TRUE(Until([&] { return TextOf(field, window) == text; }))
      << "'" << field << "' holds '" << TextOf(field, window) << "', wanted '" << text << "'";
}

void RealProgram::ExpectFocusOnMainWindow() const {
  EXPECT_TRUE(Until([&] {
    const std::vector<Control> windows = controls_->Windows();
    return std::any_of(windows.begin(), windows.end(), [](const Control& window) {
      return StartsWith(window.name, kMainTitle) && window.active;
    });
  })) << "the main window is not active";
}

bool RealProgram::HasWindow(const std::string& title) const {
  const std::vector<Control> windows = controls_->Windows();
  return std::any_of(windows.begin(), windows.end(),
                     [&title](const Control& window) { return StartsWith(window.name, title); });
}

void RealProgram::ExpectWindow(const std::string& title) const {
  EXPECT_TRUE(Until([&] { return HasWindow(title); })) << "no window '" << title << "'";
}

void RealProgram::ExpectNoWindow(const std::string& title) const {
  EXPECT_TRUE(Until([&] { return !HasWindow(title); })) << "still there: '" << title << "'";
}

std::string RealProgram::Message(const std::string& title) const {
  for (const Control& window : controls_->Windows()) {
    if (window.name != title) continue;
    for (const Control& control : controls_->In(title)) {
      if (control.role == "label" && !control.name.empty()) return control.name;
    }
  }
  return {};
}

void RealProgram::Answer(const std::string& title, const std::string& text, const std::string& button) const {
  EXPECT_TRUE(Until([&] { return Message(title) == text; }))
      << "the box '" << title << "' says '" << Message(title) << "', wanted '" << text << "'";
  ClickOn(button, title);
  EXPECT_TRUE(Until([&] { return Message(title) != text; })) << "the box '" << title << "' stays";
}

std::string RealProgram::Cell(int row, int column) const {
  const Control page = FindNow(kPageName);
  if (page.role.empty()) return {};
  const std::string spoken = controls_->CellText(page, row, column);
  const std::string offset = "Offset ";
  if (StartsWith(spoken, offset)) return spoken.substr(offset.size());
  return spoken.substr(0, spoken.find(", ", 1));
}

void RealProgram::ExpectCell(int row, int column, const std::string& text) const {
  EXPECT_TRUE(Until([&] { return Cell(row, column) == text; }))
      << "cell " << row << ", " << column << " holds '" << Cell(row, column) << "', wanted '" << text << "'";
}

std::string RealProgram::Output() const {
  std::ifstream file(own_ / "printed");
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

}  // namespace bwp::test
