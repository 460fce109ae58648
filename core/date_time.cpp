// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/date_time.hpp"

#include <algorithm>
#include <array>
#include <vector>

#include "core/text.hpp"

namespace kelp {

namespace {

using namespace std::chrono;

std::string Digits(int value, std::size_t width) { return Padded(std::to_string(value), width, "L", "0"); }

// A whole number of at most four digits, or -1.
int Number(std::string_view text) {
  if (text.empty() || text.size() > 4) return -1;
  int number = 0;
  for (char c : text) {
    if (c < '0' || c > '9') return -1;
    number = number * 10 + (c - '0');
  }
  return number;
}

std::vector<std::string_view> Split(std::string_view text, char at) {
  std::vector<std::string_view> parts;
  for (auto end = text.find(at); end != std::string_view::npos; end = text.find(at)) {
    parts.push_back(text.substr(0, end));
    text.remove_prefix(end + 1);
  }
  parts.push_back(text);
  return parts;
}

std::optional<local_days> Day(int y, int m, int d) {
  if (y < 1 || m < 1 || d < 1) return {};
  const year_month_day date{year{y}, month{static_cast<unsigned>(m)}, day{static_cast<unsigned>(d)}};
  if (!date.ok()) return {};
  return local_days{date};
}

int MonthOf(std::string_view name) {
  static constexpr std::array<std::string_view, 12> kNames = {"JAN", "FEB", "MAR", "APR", "MAY", "JUN",
                                                              "JUL", "AUG", "SEP", "OCT", "NOV", "DEC"};
  const auto found = std::find(kNames.begin(), kNames.end(), Upper(name));
  return found == kNames.end() ? -1 : static_cast<int>(found - kNames.begin()) + 1;
}

// Seconds of the day, or -1. `half` is "", "AM" or "PM".
int SecondsOfDay(std::string_view text, std::string_view half) {
  const auto parts = Split(text, ':');
  if (parts.size() != 3) return -1;
  int h = Number(parts[0]);
  const int m = Number(parts[1]);
  const int s = Number(parts[2]);
  if (m < 0 || m > 59 || s < 0 || s > 59) return -1;
  if (!half.empty()) {
    if (h < 1 || h > 12) return -1;
    h = h % 12 + (half == "PM" ? 12 : 0);
  }
  return h < 0 || h > 23 ? -1 : h * 3600 + m * 60 + s;
}

}  // namespace

std::string ShortDate(LocalTime time) {
  const year_month_day date{floor<days>(time)};
  return Digits(static_cast<int>(unsigned{date.month()}), 2) + "/" +
         Digits(static_cast<int>(unsigned{date.day()}), 2) + "/" + Digits(int{date.year()}, 4);
}

std::string LongTime(LocalTime time) {
  const hh_mm_ss clock{time - floor<days>(time)};
  return Digits(static_cast<int>(clock.hours().count()), 2) + ":" +
         Digits(static_cast<int>(clock.minutes().count()), 2) + ":" +
         Digits(static_cast<int>(clock.seconds().count()), 2);
}

std::optional<LocalTime> ParseDateTime(std::string_view text) {
  auto words = Words(text);
  std::string half;
  if (words.size() == 3 && (Upper(words[2]) == "AM" || Upper(words[2]) == "PM")) {
    half = Upper(words[2]);
    words.pop_back();
  }
  std::optional<local_days> date;
  if (words.size() == 2) {
    const auto slashed = Split(words[0], '/');
    const auto dashed = Split(words[0], '-');
    if (slashed.size() == 3) date = Day(Number(slashed[2]), Number(slashed[0]), Number(slashed[1]));
    if (dashed.size() == 3 && half.empty())
      date = Day(Number(dashed[0]), Number(dashed[1]), Number(dashed[2]));
  } else if (words.size() == 4) {
    date = Day(Number(words[2]), MonthOf(words[0]), Number(words[1]));
  }
  if (!date) return {};
  const int seconds = SecondsOfDay(words.back(), half);
  if (seconds < 0) return {};
  return *date + std::chrono::seconds(seconds);
}

std::string OwnDate(std::string_view text) {
  const auto day = ParseDateTime(std::string(Trim(text)) + " 00:00:00");
  return day ? ShortDate(*day) : "";
}

std::string OwnTime(std::string_view text) {
  // "9:40:00PM" is as good as "9:40:00 PM", and nobody notes the seconds.
  std::string time(Trim(text));
  std::string half;
  for (const char* mark : {"AM", "PM"})
    if (EndsWith(Upper(time), mark)) {
      half = std::string(" ") + mark;
      time = Trim(Left(time, time.size() - 2));
    }
  if (std::count(time.begin(), time.end(), ':') == 1) time += ":00";
  const auto at = ParseDateTime("01/01/2000 " + time + half);
  return at ? LongTime(*at) : "";
}

std::string DateProblem(std::string_view text) {
  return Trim(text).empty() || !OwnDate(text).empty() ? ""
                                                      : "the filtration date is to be written as MM/DD/YYYY";
}

std::string TimeProblem(std::string_view text) {
  return Trim(text).empty() || !OwnTime(text).empty() ? ""
                                                      : "the filtration time is to be written as HH:MM:SS";
}

DateAndTime SplitDateTime(std::string_view text) {
  text = Trim(text);
  const auto colon = text.find(':');
  const auto blank = colon == std::string_view::npos ? text.find(' ') : text.rfind(' ', colon);
  // Without a blank there is only one of the two.
  if (blank != std::string_view::npos)
    return {std::string(Trim(text.substr(0, blank))), std::string(Trim(text.substr(blank)))};
  return colon == std::string_view::npos ? DateAndTime{std::string(text), ""}
                                         : DateAndTime{"", std::string(text)};
}

}  // namespace kelp
