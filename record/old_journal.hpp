// SPDX-License-Identifier: GPL-3.0-or-later
// The journals that Kelp 0.1 kept beside a station's temporary copy: readings that were stored and not saved.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kelp {

/// A station of a journal: its base file's path in small letters, and its values by the record's places.
struct OldStation {
  std::string BaseFile;
  std::vector<std::pair<std::string, std::string>> Values = {};
};

/// The newest complete section of each station of a journal; where none is complete, the newest one up to its
/// first damaged line. Sections of an unknown version count as none.
std::vector<OldStation> ReadOldJournal(std::string_view content);

/// A line of such a journal, with its check sum and CR LF.
std::string OldJournalLine(const std::string& text);

}  // namespace kelp
