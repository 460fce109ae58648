// SPDX-License-Identifier: GPL-3.0-or-later
// The machine's clocks and folders.
#include "platform/host.hpp"

#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <ctime>

#include "platform/error.hpp"
#include "platform/posix/handle.hpp"

namespace kelp {

LocalTime HostNow() {
  using namespace std::chrono;
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  ::localtime_r(&now, &local);
  return local_days{year{local.tm_year + 1900} / (local.tm_mon + 1) / local.tm_mday} + hours{local.tm_hour} +
         minutes{local.tm_min} + seconds{local.tm_sec};
}

std::int64_t HostMilliseconds() {
  using namespace std::chrono;
  return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

std::filesystem::path HostDataFolder() {
  // A relative folder here would follow the folder the program happens to be started in.
  const char* data = std::getenv("XDG_DATA_HOME");
  if (data != nullptr && data[0] == '/') return std::filesystem::path(data) / "kelp";
  const char* home = std::getenv("HOME");
  if (home == nullptr || home[0] != '/') {
    const passwd* user = ::getpwuid(::getuid());
    home = user != nullptr ? user->pw_dir : nullptr;
  }
  if (home == nullptr || home[0] != '/')
    throw FileError("data folder", "this user has no home folder; say with --drives where the drives lie");
  return std::filesystem::path(home) / ".local/share/kelp";
}

std::string HostMachineName() {
  char name[256] = {};
  return ::gethostname(name, sizeof name - 1) == 0 && name[0] != '\0' ? name : "unknown";
}

std::string HostUserName() {
  const passwd* user = ::getpwuid(::getuid());
  return user != nullptr ? user->pw_name : "unknown";
}

void MakeHostFolder(const std::filesystem::path& folder) {
  if (folder.empty() || std::filesystem::is_directory(folder)) return;
  MakeHostFolder(folder.parent_path());
  int error = ::mkdir(folder.c_str(), 0777) == 0 || errno == EEXIST ? 0 : errno;
  if (error == 0) error = FlushFolder(folder.parent_path());
  if (error != 0) Fail(folder.string(), error, Doing::Writing);
}

std::string HostPortDevice(int number) { return "/dev/ttyS" + std::to_string(number - 1); }

}  // namespace kelp
