// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/read_log.hpp"

#include "core/captions.hpp"
#include "core/text.hpp"

namespace kelp {

namespace {

// Which of the four pairs of columns a caption fills: the others stay empty.
int PairOf(const std::string& caption) {
  if (caption == captions::kReadingStationSample || caption == captions::kSaveRb) return 1;
  if (captions::WaitsForAcid(caption)) return 2;
  if (caption == captions::kReadingRa || caption == captions::kSaveRa) return 3;
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
  Disk& disk = kelp.platform.disk();
  const std::string record = LogRecord(kelp);
  // No flush: the log may lie on a slow share, and a reading must never wait for it.
  disk.AppendUnflushed(kelp.run.CsvFile, record);
  disk.AppendUnflushed(kelp.run.TmpFile, record);
}

void AppendSampleLine(Kelp& kelp, const std::string& path, const std::string& line, const std::string& mark) {
  const std::string text = OneField(line, false) + mark + "\r\n";
  kelp.platform.Aside([&] { kelp.platform.disk().Append(path, text); });
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
