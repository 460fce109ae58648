// SPDX-License-Identifier: GPL-3.0-or-later
// Places with long names.
#pragma once

#include <filesystem>
#include <string>

namespace kelp {

/// The name under which the system takes a place of 260 and more characters too, whatever its settings.
/// `place` is absolute.
inline std::wstring LongPath(const std::filesystem::path& place) {
  constexpr std::size_t longest = 240;  // room for the name of a file that is written beside it
  std::filesystem::path name = place;
  std::wstring text = name.make_preferred().wstring();
  if (text.size() < longest || text.starts_with(L"\\\\?\\")) return text;
  return text.starts_with(L"\\\\") ? L"\\\\?\\UNC" + text.substr(1) : L"\\\\?\\" + text;
}

}  // namespace kelp
