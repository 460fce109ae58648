// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/mark.hpp"

#include <cstdint>

namespace kelp {

std::string MarkOf(const std::string& text) {
  std::uint64_t hash = 14695981039346656037U;
  for (const char c : text) hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211U;
  char mark[40];
  std::snprintf(mark, sizeof mark, "%zu-%016llx", text.size(), static_cast<unsigned long long>(hash));
  return mark;
}

}  // namespace kelp
