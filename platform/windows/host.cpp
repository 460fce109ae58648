// The machine's clocks and folders.
#include "platform/host.hpp"

#include <windows.h>

#include <chrono>
#include <cstdio>

#include "platform/path_text.hpp"

namespace kelp {

LocalTime HostNow() {
  using namespace std::chrono;
  SYSTEMTIME now{};
  ::GetLocalTime(&now);
  return local_days{year{now.wYear} / now.wMonth / now.wDay} + hours{now.wHour} + minutes{now.wMinute} +
         seconds{now.wSecond};
}

std::int64_t HostMilliseconds() {
  using namespace std::chrono;
  return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

std::filesystem::path HostDataFolder() { return {}; }

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

std::string HostPortDevice(int number) { return "COM" + std::to_string(number); }

}  // namespace kelp
