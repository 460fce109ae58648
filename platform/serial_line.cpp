// SPDX-License-Identifier: GPL-3.0-or-later
// What the serial line keeps until the program takes it, on every kind of machine.
#include "platform/serial_line.hpp"

namespace kelp {

namespace {
constexpr std::size_t kKept = 64 << 10;
}  // namespace

std::string SerialLine::ReadAll() {
  std::string text;
  text.swap(waiting_);
  return text;
}

void SerialLine::Keep(const char* bytes, std::size_t count) {
  waiting_.append(bytes, count);
  if (waiting_.size() <= kKept) return;
  // Half a line would be read as another value: what is kept begins with a whole one.
  waiting_.erase(0, waiting_.size() - kKept);
  waiting_.erase(0, waiting_.find('\n') + 1);
}

}  // namespace kelp
