// The machine's clocks and folders.
#include "platform/host.hpp"

#include <windows.h>

#include <chrono>

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

std::string HostPortDevice(int number) { return "COM" + std::to_string(number); }

}  // namespace kelp
