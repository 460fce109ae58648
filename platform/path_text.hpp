// SPDX-License-Identifier: GPL-3.0-or-later
// Places on the host as text. The program's texts are UTF-8 on every machine; what Windows makes of a plain
// text depends on the code page.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace kelp {

/// The place that a text names. Throws std::exception when it holds letters that the machine can't read.
inline std::filesystem::path PlaceOf(std::string_view text) {
  return {std::u8string(text.begin(), text.end())};
}

/// The text of a place, as it is written on the host.
inline std::string TextOf(const std::filesystem::path& place) {
  const std::u8string text = place.u8string();
  return {text.begin(), text.end()};
}

}  // namespace kelp
