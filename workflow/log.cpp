// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/log.hpp"

#include "core/date_time.hpp"
#include "files/read_log.hpp"
#include "record/record.hpp"

namespace kelp {

void LogReading(Kelp& kelp) {
  const LocalTime now = kelp.platform.Now();
  kelp.run.RunDate = ShortDate(now) + "," + LongTime(now);
  for (;;) {
    try {
      AppendReadLog(kelp);
      kelp.LogTrouble.clear();
      return;
    } catch (const RunTimeError& error) {
      kelp.LogTrouble = error.what();
      SetStatus(kelp, error.what());
      const Answer answer =
          kelp.platform.Ask({"Unable to save read to file, fix filepath or network connection then hit OK, "
                             "Cancel will continue without "
                             "saving.",
                             "Fix file or network problem then click OK; cancel to continue without saving",
                             Buttons::OkCancel});
      if (answer != Answer::Ok) return;
    }
  }
}

void LogSample(Kelp& kelp, const std::string& line, const std::string& mark) {
  // The record first: a share that hangs, or the message about it, must not keep the value from the disk.
  KeepRecord(kelp);
  const auto append = [&](const std::string& path, const std::string& behind) {
    try {
      AppendSampleLine(kelp, path, line, behind);
    } catch (const FileError& error) {
      // The value is safe in the table and the grid: the run must go on to the next tube.
      kelp.LogTrouble = error.what();
      ReportError(kelp, error);
    }
  };
  append(kelp.run.CsvFile, "");
  append(kelp.run.TmpFile, mark);
}

}  // namespace kelp
