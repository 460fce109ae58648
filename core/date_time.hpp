// SPDX-License-Identifier: GPL-3.0-or-later
// Dates and times as the files carry them: short date MM/DD/YYYY, long time HH:MM:SS (24 h).
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/platform.hpp"

namespace kelp {

std::string ShortDate(LocalTime time);
std::string LongTime(LocalTime time);

/// Reads "MM/DD/YYYY HH:MM:SS", "M/D/YYYY h:mm:ss AM/PM", "Mon DD YYYY HH:MM:SS" and
/// "YYYY-MM-DD HH:MM:SS". Nothing when the text is none of these or no date of the calendar.
std::optional<LocalTime> ParseDateTime(std::string_view text);

/// A date, or a time of day with or without seconds, AM or PM, in the program's own form; "" for a text that
/// is none.
std::string OwnDate(std::string_view text);
std::string OwnTime(std::string_view text);

/// What is wrong with a typed date or time, and how to write it; empty for a good one and for an empty text.
std::string DateProblem(std::string_view text);
std::string TimeProblem(std::string_view text);

/// Splits "date time" before the word with the first ":", which may be all there is; without a ":" at
/// the first blank. Both parts trimmed.
struct DateAndTime {
  std::string Date;
  std::string Time;
};
DateAndTime SplitDateTime(std::string_view text);

}  // namespace kelp
