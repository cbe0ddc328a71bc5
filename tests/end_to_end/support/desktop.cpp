#include "end_to_end/support/desktop.h"

#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <stdexcept>
#include <sys/stat.h>
#include <unistd.h>

namespace bwp::test {
namespace {

// What a server writes once it is ready, up to the end of the line.
std::string ReadLine(int descriptor) {
  std::string line;
  for (char byte = 0; read(descriptor, &byte, 1) == 1 && byte != '\n';) line += byte;
  return line;
}

std::unique_ptr<TempFolder> FolderWithoutDigits() {
  for (;;) {
    auto folder = std::make_unique<TempFolder>();
    if (folder->Path().find_first_of("0123456789") == std::string::npos) return folder;
  }
}

std::string MakeFolder(const TempFolder& parent, const std::string& name) {
  std::string path = parent / name;
  if (mkdir(path.c_str(), 0700) != 0) throw std::runtime_error("cannot make " + path);
  return path;
}

}  // namespace

Desktop::Desktop() : files_(FolderWithoutDigits()) {
  AdoptStrayProcesses();
  environment_ = {{"HOME", MakeFolder(own_, "home")},
                  {"XDG_RUNTIME_DIR", MakeFolder(own_, "run")},
                  {"TMPDIR", MakeFolder(own_, "tmp")},
                  {"XDG_CONFIG_HOME", MakeFolder(own_, "config")},
                  {"XDG_CACHE_HOME", MakeFolder(own_, "cache")},
                  {"LC_ALL", "C.UTF-8"},
                  {"QT_QPA_PLATFORM", "xcb"},
                  {"QT_LINUX_ACCESSIBILITY_ALWAYS_ON", "1"},
                  {"WAYLAND_DISPLAY", ""},
                  {"XAUTHORITY", ""}};
  SetTheme();
  std::string number;
  server_ = StartServer({"Xvfb", "-nolisten", "tcp", "-screen", "0", "2600x1800x24", "-displayfd"}, number);
  environment_["DISPLAY"] = ":" + number;
  std::string address;
  bus_ = StartServer({"dbus-daemon", "--session", "--nofork", "--print-address"}, address);
  environment_["DBUS_SESSION_BUS_ADDRESS"] = address;
  const std::string managed = own_ / "managed";
  windowManager_ = std::make_unique<Process>(
      Process::Start{.command = {"openbox", "--sm-disable", "--startup", "touch " + managed},
                     .environment = environment_,
                     .output = Log("openbox")});
  const auto isManaged = [&managed] { return access(managed.c_str(), F_OK) == 0; };
  if (number.empty() || address.empty() || !Until(isManaged)) throw std::runtime_error("no desktop");
}

Desktop::~Desktop() {
  windowManager_.reset();
  bus_.reset();
  server_.reset();
  EndStrayProcesses();
}

// BYTEWARP_THEME=dark gives the programs the colours of a dark desktop, the way desktops do.
void Desktop::SetTheme() {
  const char* const theme = std::getenv("BYTEWARP_THEME");
  if (theme == nullptr || std::string(theme) != "dark") return;
  environment_["XDG_CURRENT_DESKTOP"] = "KDE";
  environment_["KDE_SESSION_VERSION"] = "5";
  std::ofstream(environment_["XDG_CONFIG_HOME"] + "/kdeglobals")
      << "[Colors:Window]\nBackgroundNormal=42,46,50\nForegroundNormal=252,252,252\n"
         "[Colors:View]\nBackgroundNormal=27,30,32\nBackgroundAlternate=35,38,41\nForegroundNormal=252,252,"
         "252\n"
         "ForegroundInactive=161,169,177\n"
         "[Colors:Button]\nBackgroundNormal=49,54,59\nForegroundNormal=252,252,252\n"
         "[Colors:Selection]\nBackgroundNormal=61,174,233\nForegroundNormal=252,252,252\n"
         "[Colors:Tooltip]\nBackgroundNormal=49,54,59\nForegroundNormal=252,252,252\n";
}

// Starts a server that is told, as its last argument, the descriptor to write its address to when it is
// ready.
std::unique_ptr<Process> Desktop::StartServer(std::vector<std::string> command, std::string& answer) const {
  int ends[2];
  if (pipe(ends) != 0) throw std::runtime_error("no pipe");
  fcntl(ends[0], F_SETFD, FD_CLOEXEC);
  const std::string descriptor = std::to_string(ends[1]);
  const std::string name = command.front();
  if (command.back().rfind("--", 0) == 0) {
    command.back() += "=" + descriptor;
  } else {
    command.push_back(descriptor);
  }
  auto server = std::make_unique<Process>(
      Process::Start{.command = std::move(command), .environment = environment_, .output = Log(name)});
  close(ends[1]);
  answer = ReadLine(ends[0]);
  close(ends[0]);
  return server;
}

void Desktop::MoveTo(int x, int y) const {
  Do({"mousemove", std::to_string(x), std::to_string(y)});
}

void Desktop::Click(int x, int y, int button) const {
  Do({"mousemove", std::to_string(x), std::to_string(y), "click", std::to_string(button)});
}

void Desktop::DoubleClick(int x, int y) const {
  Do({"mousemove", std::to_string(x), std::to_string(y), "click", "--repeat", "2", "--delay", "60", "1"});
}

void Desktop::Press(int button) const {
  Do({"mousedown", std::to_string(button)});
}

void Desktop::Release(int button) const {
  Do({"mouseup", std::to_string(button)});
}

void Desktop::Key(const std::string& key) const {
  Do({"key", key});
}

void Desktop::KeyDown(const std::string& key) const {
  Do({"keydown", key});
}

void Desktop::KeyUp(const std::string& key) const {
  Do({"keyup", key});
}

void Desktop::Type(const std::string& text) const {
  Do({"type", "--delay", "4", text});
}

std::string Desktop::Do(std::vector<std::string> arguments) const {
  arguments.insert(arguments.begin(), "xdotool");
  return OutputOf(arguments, environment_);
}

void Desktop::TakePicture(const std::string& path) const {
  OutputOf({"import", "-window", "root", path}, environment_);
}

void Desktop::TakePictureOf(const std::string& window, const std::string& path) const {
  OutputOf({"import", "-frame", "-window", window, "-strip", path}, environment_);
}

}  // namespace bwp::test
