// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/ctd_import.hpp"

#include <algorithm>

#include "core/config.hpp"
#include "core/date_time.hpp"
#include "core/numbers.hpp"
#include "core/text.hpp"

namespace kelp {

namespace {

constexpr std::size_t kMarkTimeWidth = 21;

// Both files are named after the cruise's first four characters and the processing number.
std::string CastFile(Kelp& kelp, const std::string& folder, const char* suffix) {
  kelp.run.ProcNum = PaddedProcNum(kelp.run.ProcNum);
  return WithBackslash(folder) + std::string(Left(CfgValue(kelp.run, kCfgCruise), 4)) + kelp.run.ProcNum +
         suffix;
}

// The header lies in the folder "CTD" beside the data's; line 04, the folder of the marks, is not asked.
std::string HeaderFolder(const RunState& run) {
  std::string folder = CfgValue(run, kCfgDataPath);
  folder.resize(folder.size() - std::min<std::size_t>(folder.size(), 4));
  return folder + "CTD\\";
}

// Calls work(line) for every line; an error names file and line. A mark file may be long, so that no
// list of its lines is made.
template <class Work>
void ForEachLine(const std::string& path, std::string_view content, const Work& work) {
  for (std::size_t number = 1; !content.empty(); ++number) {
    const auto end = std::min(content.find('\n'), content.size());
    std::string_view line = content.substr(0, end);
    content.remove_prefix(std::min(end + 1, content.size()));
    if (line.ends_with('\r')) line.remove_suffix(1);
    try {
      work(line);
    } catch (const RunTimeError& error) {
      throw RunTimeError(error.kind(), path + ", line " + std::to_string(number) + ": " + error.what());
    }
  }
}

// What stands behind the first `skip` characters, trimmed.
std::string_view Behind(std::string_view line, std::size_t skip, const char* key) {
  if (skip > line.size())
    throw RunTimeError(ErrorKind::Overflow, std::string("\"") + key +
                                                "\" ends the line, but a value is to follow it; add the "
                                                "value, or type it into the header boxes");
  return Trim(line.substr(skip));
}

void TakeHeaderLine(Kelp& kelp, std::string_view line) {
  if (Contains(line, "Station:")) {
    // Counted from the first "Sta" of the line, wherever that stands, over "Station:" and one character.
    kelp.frmAcquire.txtStaInfo[kStaLineSta].Text = Behind(line, line.find("Sta") + 9, "Station:");
  }
  const auto type = Upper(line).find("TYPE:");
  if (type != std::string::npos) kelp.run.CastType = Behind(line, type + 6, "TYPE:");
  if (Contains(line, "UpLoad Time ="))
    RewriteField(kelp.run.CfgLines[kCfgCastDate], Behind(line, line.find('=') + 2, "UpLoad Time ="));
}

void TakeMarkLine(Kelp& kelp, std::string_view line) {
  if (!Contains(line, "mark")) return;
  RunState& run = kelp.run;
  const std::string_view text = Trim(Right(line, kMarkTimeWidth));
  const auto time = ParseDateTime(text);
  if (!time)
    throw RunTimeError(ErrorKind::TypeMismatch,
                       "the last 21 characters of the mark, \"" + std::string(text) +
                           "\", are no date and time such as 11/24/2026 22:30:00 with blanks in front; mend "
                           "the line, or type date and time into the header boxes");
  // The water is filtered about an hour after the bottle closed.
  run.MarkTime = *time + std::chrono::hours(1);
  run.CtdDate = ShortDate(run.MarkTime);
  run.CtdTime = LongTime(run.MarkTime);
  kelp.frmAcquire.txtStaInfo[kStaFiltDate].Text = run.CtdDate;
  kelp.frmAcquire.txtStaInfo[kStaFiltTime].Text = run.CtdTime;
}

template <class Work>
void ImportLines(Kelp& kelp, const std::string& path, const Work& take) {
  Disk& disk = kelp.platform.disk();
  if (!disk.Exists(path)) return;
  ForEachLine(path, disk.Read(path), [&](std::string_view line) { take(kelp, line); });
}

}  // namespace

void ImportCtdHeader(Kelp& kelp) {
  ImportLines(kelp, CastFile(kelp, HeaderFolder(kelp.run), ".hdr"), TakeHeaderLine);
}

void ImportCtdMark(Kelp& kelp) {
  ImportLines(kelp, CastFile(kelp, CfgValue(kelp.run, kCfgMarkDir), ".mrk"), TakeMarkLine);
}

}  // namespace kelp
