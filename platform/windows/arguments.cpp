// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/arguments.hpp"

#include <windows.h>

#include <cstdio>

#include "platform/path_text.hpp"

namespace kelp {

// What main() gets has lost the letters that the code page of the machine does not know. A program with
// windows has no terminal by itself: --help goes to the one that it was started from.
std::vector<std::string> HostArguments(int count, char** /*words*/) {
  if (::GetStdHandle(STD_OUTPUT_HANDLE) == nullptr && ::AttachConsole(ATTACH_PARENT_PROCESS) != 0) {
    static_cast<void>(std::freopen("CONOUT$", "w", stdout));
    static_cast<void>(std::freopen("CONOUT$", "w", stderr));
  }
  std::vector<std::string> arguments;
  wchar_t** words = ::CommandLineToArgvW(::GetCommandLineW(), &count);
  for (int i = 1; i < count; ++i) arguments.push_back(TextOf(words[i]));
  ::LocalFree(words);
  ::SetConsoleOutputCP(CP_UTF8);
  return arguments;
}

}  // namespace kelp
