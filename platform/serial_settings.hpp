// SPDX-License-Identifier: GPL-3.0-or-later
// What line 10 of the configuration says of the serial line: "9600,n,8,1".
#pragma once

#include <optional>
#include <string>

namespace kelp {

enum class StopBits { One, OneAndHalf, Two };

struct SerialSettings {
  int Baud = 0;
  char Parity = 'n';  ///< n, e, o, m or s
  int DataBits = 8;   ///< 5 to 8
  StopBits Stop = StopBits::One;
};

/// Reads baud rate, parity in either case, data bits and stop bits (1, 1.5, 2). Nothing when one of them is
/// missing or can't be, or more follows.
std::optional<SerialSettings> ReadSerialSettings(const std::string& text);

/// Says that a device can't be opened with such settings, and how they are written.
std::string WrongSerialSettings(const std::string& device, const std::string& settings);

}  // namespace kelp
