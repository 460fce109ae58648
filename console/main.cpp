// SPDX-License-Identifier: GPL-3.0-or-later
// kelp-console: plays an operator script on the whole program, or reviews a cruise, without a display.
#include <iostream>

#include "console/console.hpp"
#include "console/review/review_command.hpp"
#include "platform/arguments.hpp"
#include "script/options.hpp"

int main(int argc, char** argv) {
  const std::vector<std::string> words = kelp::HostArguments(argc, argv);
  if (!words.empty() && words.front() == "review")
    return kelp::RunReview({words.begin() + 1, words.end()}, std::cout, std::cerr);
  const kelp::ConsoleOptions options = kelp::ReadOptions(words);
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
