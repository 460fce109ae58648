// SPDX-License-Identifier: GPL-3.0-or-later
// Times as the record writes and shows them.
#include "core/date_time.hpp"
#include "record/book.hpp"

namespace kelp {

std::string RecordTime(LocalTime time) {
  const std::string date = ShortDate(time);
  return date.substr(6) + "-" + date.substr(0, 2) + "-" + date.substr(3, 2) + " " + LongTime(time);
}

std::string ShownTime(const std::string& recordTime) {
  if (recordTime.size() < 19) return recordTime;
  return recordTime.substr(5, 2) + "/" + recordTime.substr(8, 2) + "/" + recordTime.substr(0, 4) +
         recordTime.substr(10);
}

}  // namespace kelp
