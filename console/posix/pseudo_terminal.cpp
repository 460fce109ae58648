// SPDX-License-Identifier: GPL-3.0-or-later
#include "console/posix/pseudo_terminal.hpp"

#include <fcntl.h>
#include <poll.h>
#include <termios.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <system_error>

namespace kelp {

PseudoTerminal::PseudoTerminal() : instrument_(::posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK)) {
  const char* name = nullptr;
  if (instrument_ >= 0 && ::grantpt(instrument_) == 0 && ::unlockpt(instrument_) == 0)
    name = ::ptsname(instrument_);
  // Opened once and closed again, the device tells from then on whether somebody has it open.
  const int device = name == nullptr ? -1 : ::open(name, O_RDWR | O_NOCTTY);
  if (device < 0) {
    const int error = errno;
    if (instrument_ >= 0) ::close(instrument_);
    throw std::system_error(error, std::generic_category(), "no pseudo-terminal can be opened");
  }
  path_ = name;
  termios settings{};
  ::tcgetattr(device, &settings);
  ::cfmakeraw(&settings);
  ::tcsetattr(device, TCSANOW, &settings);
  ::close(device);
}

PseudoTerminal::~PseudoTerminal() { ::close(instrument_); }

void PseudoTerminal::Send(std::string_view text) const {
  pollfd state{instrument_, POLLOUT, 0};
  if (::poll(&state, 1, 0) < 0 || (state.revents & POLLHUP) != 0) return;
  while (!text.empty()) {
    const ssize_t sent = ::write(instrument_, text.data(), text.size());
    if (sent < 0 && errno == EINTR) continue;
    if (sent <= 0) return;
    text.remove_prefix(static_cast<std::size_t>(sent));
  }
}

}  // namespace kelp
