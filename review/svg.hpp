// SPDX-License-Identifier: GPL-3.0-or-later
// The painter that writes SVG.
#pragma once

#include <string>

#include "review/drawing.hpp"

namespace kelp {

/// The picture as an <svg> element that takes its colours from SvgStyle(), for a page with many of them.
std::string SvgElement(const Picture& picture);

/// The style of such elements: light, dark where the reader's system is, light in print.
std::string SvgStyle();

/// The picture as a file of its own.
std::string SvgFile(const Picture& picture);

/// `text` for a place inside an element or an attribute; bytes that are no UTF-8 are taken as Latin-1, and
/// control characters become blanks.
std::string XmlText(const std::string& text);

}  // namespace kelp
