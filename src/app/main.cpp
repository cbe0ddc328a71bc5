#include <csignal>
#include <cstdio>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "app/forms/application.h"
#include "app/forms/main_form.h"
#include "app/start_up.h"

namespace {

constexpr const char* kHelp =
    "Usage: bytewarp [FILE]\n"
    "Show FILE, of up to 2,147,483,647 bytes, byte by byte; look through it, change it, search it, split "
    "it.\n"
    "\n"
    "  --help     show this text and end\n"
    "  --version  show the program's version and end\n"
    "\n"
    "Settings are kept in Bytewarp.cfg in the folder that is current when the program starts.\n";

// Answers the options that need no window; true if there was one.
bool Answered(const std::vector<std::string>& arguments) {
  if (arguments.size() != 1) return false;
  if (arguments.front() == "--help") std::fputs(kHelp, stdout);
  if (arguments.front() == "--version") std::puts("bytewarp " BYTEWARP_VERSION);
  return arguments.front() == "--help" || arguments.front() == "--version";
}

}  // namespace

int main(int argc, char** argv) {
  const std::vector<std::string> arguments(argv + 1, argv + argc);
  if (Answered(arguments)) return 0;

  // A file that grows past the system's limit is reported as a full disk instead of ending the process.
  std::signal(SIGXFSZ, SIG_IGN);

  // Keeps the toolkit from taking its own options out of the arguments: they all name the file.
  int argumentsForToolkit = 1;
  bwp::Application application(argumentsForToolkit, argv);
  std::unique_ptr<bwp::MainForm> form;
  application.Guard([&] {
    form = std::make_unique<bwp::MainForm>(bwp::CurrentFolder());
    application.beforeEnd = [&form] { return form->RescueBuffer(); };
    form->Start(bwp::CommandLineText(arguments));
    form->show();
  });
  return bwp::Application::exec();
}
