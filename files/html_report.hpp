// SPDX-License-Identifier: GPL-3.0-or-later
// The report as an HTML page.
#pragma once

#include <string>
#include <vector>

namespace kelp {

/// The page of a report's lines: preformatted, the banner bold, "<", ">" and "&" of values escaped.
std::string HtmlReport(const std::vector<std::string>& lines);

}  // namespace kelp
