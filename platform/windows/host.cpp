// The machine's clocks and folders.
#include "platform/host.hpp"

#include <windows.h>

#include <chrono>
#include <cstdlib>

#include "platform/windows/handle.hpp"

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

std::string HostMachineName() {
  wchar_t name[MAX_COMPUTERNAME_LENGTH + 1] = {};
  DWORD size = MAX_COMPUTERNAME_LENGTH + 1;
  if (::GetComputerNameW(name, &size) == 0) return "unknown";
  const std::u8string text = std::filesystem::path(name).u8string();
  return {text.begin(), text.end()};
}

std::string HostUserName() {
  const wchar_t* name = ::_wgetenv(L"USERNAME");
  if (name == nullptr) return "unknown";
  const std::u8string text = std::filesystem::path(name).u8string();
  return {text.begin(), text.end()};
}

void MakeHostFolder(const std::filesystem::path& folder) {
  std::error_code error;
  std::filesystem::create_directories(folder, error);
  if (error) Fail(folder.string(), static_cast<DWORD>(error.value()));
}

std::string HostPortDevice(int number) { return "COM" + std::to_string(number); }

}  // namespace kelp
