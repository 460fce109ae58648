// SPDX-License-Identifier: GPL-3.0-or-later
// Finds a reading in the instrument's text: a line such as "\r\nA =  1.234 (RAW)".
#pragma once

#include <string>
#include <string_view>

namespace kelp {

/// True once the text holds a complete reading ("RAW)").
bool HoldsReading(std::string_view accumulator);

/// The reading: the number in the 7 characters behind the first "=" (from the start when there is
/// no "="). 0 when they hold none.
float ReadingIn(std::string_view accumulator);

/// Drops what a reading has used up: everything to the last "RAW)". The half line behind it stays.
void DropRead(std::string& accumulator);

/// Keeps text without an end within bounds: its newest 64 KiB.
void BoundAccumulator(std::string& accumulator);

/// The strip chart's value of a reading; above 20 it is x / 30, so that readings above 30 leave the
/// chart's full scale.
float ChartValue(float reading);
/// What that value was divided by: 1, 10, 20 or 30.
int ChartDivisor(float reading);

}  // namespace kelp
