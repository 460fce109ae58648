// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/read_log.hpp"

#include "core/date_time.hpp"
#include "core/text.hpp"
#include "record/record.hpp"

namespace kelp {

namespace {

// Which of the four pairs of columns a caption fills: the others stay empty.
int PairOf(const std::string& caption) {
  if (caption == "Reading Station Sample" || caption == "Save Rb") return 1;
  if (caption == "Acidify" || caption == "Acidified") return 2;
  if (caption == "Reading Ra" || caption == "Save Ra") return 3;
  return 0;
}

std::string LogRecord(const Kelp& kelp) {
  const RunState& run = kelp.run;
  const FrmAcquire& form = kelp.frmAcquire;
  const std::string& caption = form.Command1.Caption;
  std::string record =
      run.ProcNum + "," + run.SampTbl(SampleRow(run), kTblBottle) + "," + caption + "," + run.RunDate;
  for (int pair = 0; pair < 4; ++pair)
    record += pair == PairOf(caption) ? "," + run.LastRawText + "," + form.txtReading.Text : ",,";
  return OneField(record + "," + form.txtStats[1].Text, false) + "\r\n";
}

}  // namespace

void AppendReadLog(Kelp& kelp) {
  const LocalTime now = kelp.platform.Now();
  kelp.run.RunDate = ShortDate(now) + "," + LongTime(now);
  for (;;) {
    try {
      Disk& disk = kelp.platform.disk();
      const std::string record = LogRecord(kelp);
      // No flush: the log may lie on a slow share, and a reading must never wait for it.
      disk.AppendUnflushed(kelp.run.CsvFile, record);
      disk.AppendUnflushed(kelp.run.TmpFile, record);
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

void AppendSampleLine(Kelp& kelp, const std::string& line, const std::string& mark) {
  // The record first: a share that hangs, or the message about it, must not keep the value from the disk.
  KeepRecord(kelp);
  Disk& disk = kelp.platform.disk();
  const std::string text = OneField(line, false);
  const auto append = [&](const std::string& path, const std::string& record) {
    try {
      kelp.platform.Aside([&] { disk.Append(path, record + "\r\n"); });
    } catch (const FileError& error) {
      // The value is safe in the table and the grid: the run must go on to the next tube.
      kelp.LogTrouble = error.what();
      ReportError(kelp, error);
    }
  };
  append(kelp.run.CsvFile, text);
  append(kelp.run.TmpFile, text + mark);
}

void FlushReadLog(Kelp& kelp) {
  for (const std::string* path : {&kelp.run.CsvFile, &kelp.run.TmpFile}) {
    try {
      if (!path->empty()) kelp.platform.Aside([&] { kelp.platform.disk().Flush(*path); });
    } catch (const FileError& error) {
      SetStatus(kelp, std::string(error.what()) + " (the last lines of the read log)");
    }
  }
}

}  // namespace kelp
