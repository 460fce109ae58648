// SPDX-License-Identifier: GPL-3.0-or-later
// The machine's clocks and folders.
#include "platform/host.hpp"

#include <windows.h>

#include <chrono>
#include <cstdlib>

#include "platform/path_text.hpp"
#include "platform/windows/handle.hpp"
#include "platform/windows/long_path.hpp"

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
  return TextOf(name);
}

std::string HostUserName() {
  const wchar_t* name = ::_wgetenv(L"USERNAME");
  if (name == nullptr) return "unknown";
  return TextOf(name);
}

void MakeHostFolder(const std::filesystem::path& folder) {
  if (folder.empty() || folder == folder.root_path()) return;
  const DWORD attributes = ::GetFileAttributesW(LongPath(std::filesystem::absolute(folder)).c_str());
  if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) return;
  MakeHostFolder(folder.parent_path());
  if (::CreateDirectoryW(LongPath(std::filesystem::absolute(folder)).c_str(), nullptr) == 0 &&
      ::GetLastError() != ERROR_ALREADY_EXISTS)
    Fail(TextOf(folder), ::GetLastError());
}

std::string HostPortDevice(int number) { return "COM" + std::to_string(number); }

}  // namespace kelp
