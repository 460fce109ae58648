// SPDX-License-Identifier: GPL-3.0-or-later
// Loaded into GtkTerm with LD_PRELOAD. It closes a port that the system does not list as a device, or that
// has no control lines, and a pseudo-terminal is not listed and has none: without this it would read nothing.
#include <asm/ioctls.h>
#include <asm/termios.h>
#include <dlfcn.h>
#include <sys/syscall.h>
#include <unistd.h>

// For any file, a device that each machine has.
extern "C" void* g_udev_client_query_by_device_file(void* client, const char* /*file*/) {
  using Query = void* (*)(void*, const char*);
  const auto query = reinterpret_cast<Query>(::dlsym(RTLD_NEXT, "g_udev_client_query_by_device_file"));
  return query(client, "/dev/null");
}

extern "C" int ioctl(int file, unsigned long request, void* argument) {
  if (request != TIOCMGET) return static_cast<int>(::syscall(SYS_ioctl, file, request, argument));
  *static_cast<int*>(argument) = TIOCM_DTR | TIOCM_RTS | TIOCM_CTS | TIOCM_DSR | TIOCM_CAR;
  return 0;
}
