// kelp-console: plays an operator script on the whole program, without a display.
#include <iostream>

#include "console/console.hpp"
#include "console/options.hpp"
#include "platform/arguments.hpp"

int main(int argc, char** argv) {
  const kelp::ConsoleOptions options = kelp::ReadOptions(kelp::HostArguments(argc, argv));
  if (options.Help) {
    std::cout << kelp::kConsoleHelp;
    return 0;
  }
  if (options.Version) {
    std::cout << "kelp-console " KELP_VERSION "\n";
    return 0;
  }
  kelp::ScriptResult result;
  if (options.Problem.empty())
    result = kelp::RunConsole(options);
  else
    result = {kelp::ScriptStatus::Wrong, options.Script + ":0: " + options.Problem};
  std::cout.flush();
  if (!result.message.empty()) std::cerr << result.message << std::endl;
  return static_cast<int>(result.status);
}
