// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/serial_settings.hpp"

#include <sstream>
#include <string_view>

namespace kelp {

std::optional<SerialSettings> ReadSerialSettings(const std::string& text) {
  std::istringstream in(text);
  SerialSettings settings;
  char comma[3] = {};
  char parity = 0;
  std::string stop, rest;
  in >> settings.Baud >> comma[0] >> parity >> comma[1] >> settings.DataBits >> comma[2] >> stop;
  settings.Parity = parity >= 'A' && parity <= 'Z' ? static_cast<char>(parity + 32) : parity;
  const bool whole = in && !(in >> rest) && std::string_view(comma, 3) == ",,,";
  if (!whole || settings.Baud <= 0 || settings.DataBits < 5 || settings.DataBits > 8 ||
      std::string_view("neoms").find(settings.Parity) == std::string_view::npos)
    return std::nullopt;
  if (stop == "1")
    settings.Stop = StopBits::One;
  else if (stop == "1.5")
    settings.Stop = StopBits::OneAndHalf;
  else if (stop == "2")
    settings.Stop = StopBits::Two;
  else
    return std::nullopt;
  return settings;
}

std::string WrongSerialSettings(const std::string& device, const std::string& settings) {
  return device + " can't be opened with the settings \"" + settings +
         "\"; write baud rate, parity, data and stop bits as in 9600,n,8,1";
}

}  // namespace kelp
