// SPDX-License-Identifier: GPL-3.0-or-later
// Names that a file can have on Windows.
#pragma once

#include <string>
#include <string_view>

namespace kelp {

/// Why no file or folder of Windows can have this name, and what to do; empty when one can. Windows opens a
/// device for some names, so that what is written is gone, and leaves out dots and blanks at the end, so that
/// another file is written.
std::string WhyNoWindowsName(std::string_view name);

}  // namespace kelp
