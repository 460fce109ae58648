// SPDX-License-Identifier: GPL-3.0-or-later
// The station's record on a real disk: how long an accepted value takes to be safe, a tick of the read log,
// the start with thousands of stations in the database, and a day of twenty stations of a hundred samples.
// TMPDIR names the disk: a folder in memory proves nothing.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "app/door.hpp"
#include "core/config.hpp"
#include "core/numbers.hpp"
#include "core/text.hpp"
#include "platform/host.hpp"
#include "platform/scripted.hpp"
#include "record/database.hpp"
#include "record/record.hpp"
#include "tests/support/temp_folder.hpp"
#include "workflow/log.hpp"

namespace kelp {

namespace {

class Willing : public ScriptedPlatform {
 public:
  using ScriptedPlatform::ScriptedPlatform;
  Answer Ask(const Message& message) override {
    if (StartsWith(message.Text, "Missing cfg")) return Answer::No;
    return message.Buttons == Buttons::Ok || message.Buttons == Buttons::OkCancel ? Answer::Ok : Answer::Yes;
  }
};

struct Bench {
  TempFolder folder = {};
  DriveMap drives{folder.Path};
  std::unique_ptr<Disk> disk = MakeHostDisk(drives);
  Willing machine{*disk};
  std::unique_ptr<Kelp> program = std::make_unique<Kelp>(machine);
  Kelp& kelp = *program;

  void Click(const char* screen, const char* control, int index = -1) {
    Post(kelp, {EventKind::Click, {screen, control, index}});
  }
  void Create(const char* samples) {
    Post(kelp, {EventKind::Edit, {"frmCreateBase", "Text1", 2}, samples});
    Click("frmCreateBase", "cmdCreateBase", 0);
  }
  void Open(const char* samples) {
    Start(kelp);
    Click("frmMain", "Command1", 0);
    Click("frmLogin", "cmdOK");
    Create(samples);
    kelp.run.CfgLines[12].replace(0, 2, "2 ");
    Click("frmAcquire", "Command1");
  }
  void Save(double value) {
    Click("frmAcquire", "Command1");
    for (int i = 0; i < 10; ++i) {
      machine.Feed("\r\nA =" + Padded(Fixed(value, 4), 7, "L", "S") + " (RAW)");
      machine.Advance(1000);
      Pass(kelp);
    }
    Click("frmAcquire", "Command1");
  }
  [[nodiscard]] double DatabaseBytes() const {
    return static_cast<double>(std::filesystem::file_size(folder.Path / "drive_c/kelp/record.db"));
  }
};

void AcceptedValue(benchmark::State& state) {
  Bench bench;
  bench.Open("100");
  int count = 0;
  for (auto _ : state) {
    const auto row = 1 + count % 100;
    bench.kelp.frmAcquire.datalog.Text(row, kColRb) = std::to_string(++count);
    KeepRecord(bench.kelp);
  }
}
BENCHMARK(AcceptedValue)->Unit(benchmark::kMicrosecond)->Iterations(200)->Repetitions(5);

void LogTick(benchmark::State& state) {
  Bench bench;
  bench.Open("10");
  for (auto _ : state) LogReading(bench.kelp);
}
BENCHMARK(LogTick)->Unit(benchmark::kMicrosecond);

void StartWith2000Stations(benchmark::State& state) {
  Bench bench;
  bench.disk->MakeFolder("c:\\kelp");
  {
    Database record(*bench.disk, kRecordPath);
    std::vector<RecordedEvent> events;
    for (std::int64_t station = 1; station <= 2000; ++station)
      for (std::int64_t i = 0; i < 50; ++i) {
        RecordedEvent event;
        event.Uid = event.Step = station * 100 + i;
        event.Run = station * 100;
        event.Kind = i == 0 ? kLoad : i == 49 ? kSaved : kStore;
        event.At = "2026-11-24 02:10:31";
        event.Station = "q:\\vault\\chl" + std::to_string(station);
        event.Number = std::to_string(station);
        for (int row = 1; row <= (i == 0 ? 60 : 10); ++row)
          event.Values.push_back({"datalog(" + std::to_string(row) + ",3)", "Rb", "1.0000", "2.0000"});
        events.push_back(std::move(event));
      }
    record.Write(events);
  }
  for (auto _ : state) {
    bench.kelp.record = {};
    OfferUnfinished(bench.kelp);
    bench.kelp.run.PrnFile = "q:\\vault\\chl1000.prn";
    OfferRestore(bench.kelp);
  }
  state.counters["MB"] = bench.DatabaseBytes() / 1e6;
}
BENCHMARK(StartWith2000Stations)->Unit(benchmark::kMillisecond);

double ResidentMegabytes() {
  long pages = 0;
  std::ifstream("/proc/self/statm") >> pages >> pages;
  return static_cast<double>(pages) * static_cast<double>(::sysconf(_SC_PAGESIZE)) / 1e6;
}

double OpenHandles() {
  double count = 0;
  for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) ++count;
  return count;
}

void OneStation(Bench& bench) {
  for (int sample = 1; sample <= 100; ++sample) {
    bench.Save(2.0 + sample / 100.0);
    bench.Save(1.0 + sample / 200.0);
  }
}

// Memory, handles and time of the first and of the last of twenty stations in one run.
void TwentyStations(benchmark::State& state) {
  for (auto _ : state) {
    Bench bench;
    bench.Open("100");
    for (const double value : {0.005, 1.53, 5.03}) bench.Save(value);
    for (int station = 1; station <= 20; ++station) {
      const auto begun = std::chrono::steady_clock::now();
      OneStation(bench);
      const std::chrono::duration<double> took = std::chrono::steady_clock::now() - begun;
      if (station == 2 || station == 20) {
        const std::string which = station == 2 ? "second" : "last";
        state.counters[which + "_s"] = took.count();
        state.counters[which + "_MB"] = ResidentMegabytes();
        state.counters[which + "_handles"] = OpenHandles();
      }
      if (station == 20) break;
      bench.Click("frmWhatsNext", "Option1", 0);
      bench.Click("frmWhatsNext", "NextButton");
      bench.Create("100");
    }
    state.counters["stored"] = static_cast<double>(bench.kelp.run.SampCount);
    state.counters["database_MB"] = bench.DatabaseBytes() / 1e6;
  }
}
BENCHMARK(TwentyStations)->Unit(benchmark::kSecond)->Iterations(1);

}  // namespace

}  // namespace kelp
