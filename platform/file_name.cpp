// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/file_name.hpp"

#include <algorithm>

namespace kelp {

namespace {

bool NamesDevice(std::string_view name) {
  std::string stem(name.substr(0, name.find('.')));
  stem.erase(stem.find_last_not_of(' ') + 1);
  std::transform(stem.begin(), stem.end(), stem.begin(),
                 [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; });
  for (const std::string_view device : {"CON", "PRN", "AUX", "NUL", "CONIN$", "CONOUT$"})
    if (stem == device) return true;
  if (!stem.starts_with("COM") && !stem.starts_with("LPT")) return false;
  const std::string number = stem.substr(3);
  return (number.size() == 1 && number[0] >= '1' && number[0] <= '9') || number == "\u00b9" ||
         number == "\u00b2" || number == "\u00b3";
}

}  // namespace

std::string WhyNoWindowsName(std::string_view name) {
  const auto wrong = std::find_if(name.begin(), name.end(), [](char c) {
    return (static_cast<unsigned char>(c) < 32) ||
           std::string_view("<>\"|?*").find(c) != std::string_view::npos;
  });
  if (wrong != name.end())
    return static_cast<unsigned char>(*wrong) < 32
               ? "holds a control character, which no name may hold; leave it out"
               : std::string("holds a ") + *wrong + ", which no name may hold; leave it out";
  if (name.ends_with('.') || name.ends_with(' '))
    return "ends with a dot or a blank, which Windows would leave out; leave it out";
  if (NamesDevice(name)) return "is the name of a device of Windows; choose another name";
  return {};
}

}  // namespace kelp
