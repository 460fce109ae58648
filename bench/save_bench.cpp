// SPDX-License-Identifier: GPL-3.0-or-later
// The end of a station of 100 samples on a real disk: the save, with every file flushed, before and after
// the cruise's database file has grown to a million rows; and the recalculation. TMPDIR names the disk:
// a folder in memory proves nothing.
#include <benchmark/benchmark.h>

#include "files/ctd_import.hpp"
#include "files/database_csv.hpp"
#include "platform/host.hpp"
#include "tests/support/finished_station.hpp"
#include "tests/support/temp_folder.hpp"
#include "workflow/save_station.hpp"

namespace kelp {

namespace {

// A finished station of 100 samples, moved from memory to the host's disk.
struct StationOnDisk {
  TempFolder folder = {};
  DriveMap drives{folder.Path};
  std::unique_ptr<Disk> disk = MakeHostDisk(drives);
  ScriptedPlatform platform{*disk};
  Kelp kelp{platform};

  StationOnDisk() {
    FinishedStation finished(100);
    for (const auto& [path, text] : finished.disk.Files) {
      disk->MakeFolder(path.substr(0, path.rfind('\\')));
      disk->Replace(path, text);
    }
    kelp.run = finished.run();
    kelp.frmAcquire = finished.form();
    kelp.frmWhatsNext = finished.kelp.frmWhatsNext;
    kelp.ConfigKnown = finished.kelp.ConfigKnown;
    platform.SetClock(finished.platform.Now());
  }

  // `count` rows in the cruise's database file, a hundred at a time.
  void FillCruise(std::int64_t count) {
    const std::string rows = DatabaseRows(kelp, kCruiseCsvHeader);
    std::string text = std::string(kCruiseCsvHeader) + "\r\n";
    for (; count > 0; count -= kelp.run.SampCount) text += rows;
    folder.Write("drive_q/vault/2007/0707/chl/0707SLChldb.csv", text);
    // Flushed, so that the first save does not pay for all that was written here.
    disk->Append(CruiseCsvPath(kelp.run), rows);
  }
};

// The floor: what one line costs that is flushed to this disk. A save flushes eleven times.
void OneFlushedLine(benchmark::State& state) {
  StationOnDisk station;
  for (auto _ : state) station.disk->Append(station.kelp.run.TmpFile, "one line\r\n");
}
BENCHMARK(OneFlushedLine)->Unit(benchmark::kMillisecond)->UseRealTime();

void SaveOf100Samples(benchmark::State& state) {
  StationOnDisk station;
  if (state.range(0) > 0) station.FillCruise(state.range(0));
  for (auto _ : state) {
    // Results that are those of the last save are not written again.
    station.kelp.record.SavedRows.clear();
    if (!CloseStation(station.kelp)) state.SkipWithError("the save failed");
    station.platform.Advance(1000);
  }
}
BENCHMARK(SaveOf100Samples)
    ->Arg(0)
    ->Arg(1000000)
    ->ArgName("cruise_rows")
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

void RecalculationOf100Samples(benchmark::State& state) {
  StationOnDisk station;
  for (auto _ : state) CalcAllSamples(station.kelp);
}
BENCHMARK(RecalculationOf100Samples)->Unit(benchmark::kMillisecond)->UseRealTime();

void MarkFileOf10Megabytes(benchmark::State& state) {
  FinishedStation station(1);
  std::string& marks = station.disk.Files["q:\\vault\\2007\\0707\\mrk\\0707002.mrk"];
  while (marks.size() < 10'000'000) marks += "mark 5, bottle  11/24/2026 22:30:00\r\n";
  for (auto _ : state) ImportCtdMark(station.kelp);
}
BENCHMARK(MarkFileOf10Megabytes)->Unit(benchmark::kMillisecond);

}  // namespace

}  // namespace kelp
