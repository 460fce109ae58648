// SPDX-License-Identifier: GPL-3.0-or-later
// Tells a changed text from the one that was.
#pragma once

#include <string>

namespace kelp {

/// A mark of a text by which a changed one is told.
std::string MarkOf(const std::string& text);

}  // namespace kelp
