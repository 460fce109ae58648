// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/faults/shim.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdarg>
#include <cstdlib>

#include "tests/faults/durable.hpp"

namespace kelp {

namespace {

[[noreturn]] void Die() {
  ::kill(::getpid(), SIGKILL);
  for (;;) ::pause();
}

#ifdef KELP_PRELOAD
// KELP_FAULT_AT counts from 1; with KELP_FAULT_LOG a line of each call goes to that file.
Faults FromEnvironment() {
  const auto get = [](const char* name) {
    const char* value = std::getenv(name);
    return std::string(value != nullptr ? value : "");
  };
  return {.Root = get("KELP_FAULT_ROOT"),
          .At = std::atoi(get("KELP_FAULT_AT").c_str()),
          .Kill = true,
          .HalfWritten = get("KELP_FAULT") == "half",
          .After = get("KELP_FAULT") == "after",
          .Durable = get("KELP_FAULT_DURABLE"),
          .SlowFlush = std::atoi(get("KELP_FAULT_SLOW_FLUSH").c_str())};
}

void Log(const DiskCall& call) {
  static const int log = std::getenv("KELP_FAULT_LOG") == nullptr
                             ? -1
                             : static_cast<int>(syscall(SYS_openat, AT_FDCWD, std::getenv("KELP_FAULT_LOG"),
                                                        O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600));
  const std::string line = call.Name + " " + call.Path + " " + call.NewPath + "\n";
  if (log >= 0) syscall(SYS_write, log, line.data(), line.size());
}
#else
Faults FromEnvironment() { return {}; }
void Log(const DiskCall& /*call*/) {}
#endif

std::string PathOf(int fd) {
  char path[PATH_MAX];
  const ssize_t size = ::readlink(("/proc/self/fd/" + std::to_string(fd)).c_str(), path, sizeof path);
  return size > 0 ? std::string(path, static_cast<std::size_t>(size)) : "";
}

// True when the call is to fail; does not come back when it is to be the last one.
bool Counted(DiskCall call, int fd = -1, const void* data = nullptr, std::size_t size = 0, off_t at = -1) {
  Faults& faults = TheFaults();
  if (faults.Root.empty()) return false;
  if (fd >= 0) call.Path = PathOf(fd);
  if (!call.Path.starts_with(faults.Root)) return false;
  const int number = static_cast<int>(faults.Calls.size()) + 1;
  const bool hit = (faults.At > 0 && (number == faults.At || (faults.ForGood && number > faults.At))) ||
                   (!faults.Fails.empty() && call.Name == faults.Fails);
  Log(call);
  if (!faults.Durable.empty() && faults.Calls.empty()) TheDurable().Begin(faults.Root);
  if (hit && faults.Kill && !faults.After) {
    if (faults.HalfWritten && at >= 0) syscall(SYS_pwrite64, fd, data, size / 2, at);
    if (faults.HalfWritten && at < 0) syscall(SYS_write, fd, data, size / 2);
    if (!faults.Durable.empty()) TheDurable().WriteTo(faults.Root, faults.Durable);
    Die();
  }
  const bool fails = hit && !faults.After;
  call.Failed = fails;
  faults.Failures += fails ? 1 : 0;
  faults.Calls.push_back(std::move(call));
  if (fails) errno = faults.Error;
  return fails;
}

// The call has been made: a kill may come right behind it, and a flush makes what it flushed outlive a power
// cut.
long Made(long result) {
  Faults& faults = TheFaults();
  if (faults.Root.empty() || faults.Calls.empty()) return result;
  const int error = errno;
  if (faults.After && faults.Kill && static_cast<int>(faults.Calls.size()) == faults.At) Die();
  errno = error;
  return result;
}

long Flushed(int fd, long result) {
  Faults& faults = TheFaults();
  if (result == 0 && !faults.Durable.empty() && PathOf(fd).starts_with(faults.Root))
    TheDurable().Flush(fd, PathOf(fd));
  if (faults.SlowFlush > 0) ::usleep(static_cast<unsigned>(faults.SlowFlush) * 1000U);
  return Made(result);
}

int Result(long result) { return static_cast<int>(Made(result)); }

}  // namespace

Faults& TheFaults() {
  // Never destroyed: the last writes come after the end of main.
  static Faults& faults = *new Faults(FromEnvironment());
  return faults;
}

}  // namespace kelp

using kelp::Counted;

// The program writes through these and no others, SQLite in it through the 64 bit names; an strace of a
// station shows it (docs/reliability.md).
extern "C" {
int open(const char* path, int flags, ...) {
  va_list arguments;
  va_start(arguments, flags);
  const auto mode = (flags & O_CREAT) != 0 ? va_arg(arguments, mode_t) : 0;  // NOLINT: va_start is above
  va_end(arguments);
  if ((flags & (O_WRONLY | O_RDWR)) != 0 && Counted({"open", path})) return -1;
  return kelp::Result(syscall(SYS_openat, AT_FDCWD, path, flags, mode));
}
int open64(const char* path, int flags, ...) {
  va_list arguments;
  va_start(arguments, flags);
  const auto mode = (flags & O_CREAT) != 0 ? va_arg(arguments, mode_t) : 0;  // NOLINT: va_start is above
  va_end(arguments);
  return open(path, flags, mode);
}
int close(int fd) {
  // The descriptor is gone whatever close says, as the system has it.
  const bool fails = Counted({"close", ""}, fd);
  const int result = kelp::Result(syscall(SYS_close, fd));
  if (fails) errno = kelp::TheFaults().Error;
  return fails ? -1 : result;
}
ssize_t write(int fd, const void* data, size_t size) {
  if (Counted({"write", ""}, fd, data, size)) return -1;
  return kelp::Made(syscall(SYS_write, fd, data, kelp::TheFaults().ShortWrites ? (size + 1) / 2 : size));
}
ssize_t pwrite64(int fd, const void* data, size_t size, off_t at) {
  if (Counted({"pwrite", ""}, fd, data, size, at)) return -1;
  return kelp::Made(
      syscall(SYS_pwrite64, fd, data, kelp::TheFaults().ShortWrites ? (size + 1) / 2 : size, at));
}
ssize_t pwrite(int fd, const void* data, size_t size, off_t at) { return pwrite64(fd, data, size, at); }
int ftruncate(int fd, off_t size) noexcept {
  return Counted({"ftruncate", ""}, fd) ? -1 : kelp::Result(syscall(SYS_ftruncate, fd, size));
}
int ftruncate64(int fd, off_t size) noexcept { return ftruncate(fd, size); }
int fdatasync(int fd) {
  return Counted({"fdatasync", ""}, fd) ? -1
                                        : static_cast<int>(kelp::Flushed(fd, syscall(SYS_fdatasync, fd)));
}
int fsync(int fd) {
  return Counted({"fsync", ""}, fd) ? -1 : static_cast<int>(kelp::Flushed(fd, syscall(SYS_fsync, fd)));
}
int rename(const char* from, const char* to) noexcept {
  return Counted({"rename", from, to})
             ? -1
             : kelp::Result(syscall(SYS_renameat2, AT_FDCWD, from, AT_FDCWD, to, 0));
}
int link(const char* from, const char* to) noexcept {
  return Counted({"link", from, to}) ? -1
                                     : kelp::Result(syscall(SYS_linkat, AT_FDCWD, from, AT_FDCWD, to, 0));
}
int unlink(const char* path) noexcept {
  return Counted({"unlink", path}) ? -1 : kelp::Result(syscall(SYS_unlinkat, AT_FDCWD, path, 0));
}
int mkdir(const char* path, mode_t mode) noexcept {
  return Counted({"mkdir", path}) ? -1 : kelp::Result(syscall(SYS_mkdirat, AT_FDCWD, path, mode));
}
}
