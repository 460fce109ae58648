// SPDX-License-Identifier: GPL-3.0-or-later
// Numbers as the screens and files show them, and the lenient parse of what people type.
#pragma once

#include <string>
#include <string_view>

namespace kelp {

/// The number at the start of a text: leading blanks skipped, an optional sign, digits, "." as the
/// decimal point whatever the locale, an optional exponent; the parse stops at the first character
/// that cannot go on. 0 when there is none ("", "nan", "inf"). Never infinite: an exponent beyond
/// the range is not read.
double Val(std::string_view text);

/// Fixed decimals, as the patterns "#0.000", "##0.000", "0.00" and "0.0000" show: at least one digit
/// before the point, no minus sign in front of a zero.
std::string Fixed(double value, int decimals);

inline std::string RawText(double value) { return Fixed(value, 3); }    ///< "#0.000": raw readings
inline std::string SavedText(double value) { return Fixed(value, 4); }  ///< "#0.0000": averages, saved values
inline std::string SdText(double value) { return Fixed(value, 4); }     ///< "0.0000": the SD
inline std::string ResultText(double value) {
  return Fixed(value, 3);
}  ///< "##0.000": chlorophyll-a, phaeopigment
inline std::string RatioText(double value) { return Fixed(value, 2); }  ///< "0.00": the acid ratio

/// The processing number after this one: its whole number + 1, padded to three
/// characters with zeros. Throws Overflow outside 16 bits.
std::string NextProcNum(std::string_view procNum);

/// A processing number padded on the left with "0" to three characters.
std::string PaddedProcNum(std::string_view procNum);

}  // namespace kelp
