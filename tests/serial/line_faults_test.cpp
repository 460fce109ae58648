// What can become of the instrument's line while a station runs: unplugged in every step and plugged in at
// another device path, noise, no line ends, a flood. KELP_FLOOD_SECONDS makes the flood longer.
#include <gtest/gtest.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <fstream>
#include <random>
#include <thread>

#include "console/device_host.hpp"
#include "console/instrument_line.hpp"
#include "console/posix/pseudo_terminal.hpp"
#include "core/config.hpp"
#include "core/text.hpp"
#include "tests/support/memory_disk.hpp"
#include "tests/support/temp_folder.hpp"

namespace kelp {

namespace {

namespace fs = std::filesystem;

// A station on a real line. The device of the port is a link, which leads to where the cable was plugged in
// last, as the names of a udev rule do.
struct Bench {
  TempFolder folder = {};
  fs::path link = folder.Path / "port";
  std::unique_ptr<PseudoTerminal> cable = {};
  MemoryDisk disk = {};
  DeviceMachine machine{disk, {{1, link.string()}}};
  std::unique_ptr<Kelp> program = std::make_unique<Kelp>(machine);
  Kelp& kelp = *program;
  DeviceHost host{kelp, machine};

  Bench() {
    SetDefaultConfig(kelp.run);
    SaveConfig(kelp);
    disk.Files["q:\\vault\\2007\\0707\\chl\\chl002"] =
        "93.3 70\r\nZEPHOR\r\n0 0 0 0\r\n0 0 0 0\r\n002   1 0.00987 2.011\r\n2 07    3  138 8 \r\n";
    Plug();
    host.Start();
    Click("frmMain", "Command1", 0);
    Click("frmLogin", "cmdOK");
    Click("frmAcquire", "Command1");
  }

  void Plug() {
    cable = std::make_unique<PseudoTerminal>();
    fs::remove(link);
    fs::create_symlink(cable->Path(), link);
  }
  void Unplug() {
    cable.reset();
    fs::remove(link);
  }
  void Click(const char* screen, const char* control, int index = -1) {
    host.Post({.Kind = EventKind::Click, .Place = {screen, control, index}});
  }
  [[nodiscard]] std::string Caption() const { return kelp.frmAcquire.Command1.Caption; }
  bool Until(const std::function<bool()>& reached) { return host.Let(10000, reached); }
  // Lines come in, one after the other, until the reading counter shows `count`.
  bool Read(const std::string& value, int count) {
    return Until([&] {
      if (kelp.run.ReadCount >= count) return true;
      cable->Send(InstrumentLine(value));
      return false;
    });
  }
  [[nodiscard]] bool Says(const char* status) const {
    return StartsWith(kelp.frmAcquire.StatusBar1.Text, status);
  }
};

long ResidentKiB() {
  std::ifstream status("/proc/self/statm");
  long pages = 0;
  status >> pages >> pages;
  return pages * (::sysconf(_SC_PAGESIZE) / 1024);
}

}  // namespace

TEST(LineFaults, UnpluggedInEveryStepAndPluggedInElsewhereItGoesOn) {
  Bench bench;
  struct Row {
    const char* value;
    const char* saved;
    const char* next;
  };
  for (const auto& [value, saved, next] : {Row{"0.0050", "0.0050", "Load Copro 3-1"},
                                           {"1.5300", "1.5300", "Load Copro 2-5"},
                                           {"5.0300", "5.0300", "Load 1st Sample"},
                                           {"2.0000", "2.0000", "Acidify"},
                                           {"1.0000", "1.0000", "What's Next"}}) {
    bench.Click("frmAcquire", "Command1");
    ASSERT_TRUE(bench.Read(value, 3)) << bench.Caption();
    const std::string before = bench.cable->Path();
    const PseudoTerminal other;  // takes the old path's number, or the next one
    bench.cable->Send("\r\nA =  9.9");
    bench.Unplug();
    ASSERT_TRUE(bench.Until([&] { return bench.Says("Serial line lost, trying again every second: "); }))
        << next;
    EXPECT_EQ(bench.kelp.run.ReadCount, 3);
    bench.Plug();
    ASSERT_TRUE(bench.Until([&] { return bench.Says("Serial line open again"); })) << next;
    ASSERT_TRUE(bench.Read(value, 4));
    EXPECT_TRUE(bench.Says("Readings are coming in."));
    ASSERT_TRUE(bench.Read(value, 10));
    bench.Click("frmAcquire", "Command1");
    EXPECT_EQ(bench.Caption(), next);
    FrmAcquire& form = bench.kelp.frmAcquire;
    std::string values = form.datalog.Text(1, kColRb) + " " + form.datalog.Text(1, kColRa);
    for (const TextBox& box : form.txtBlank) values += " " + box.Text;
    EXPECT_TRUE(Contains(values, saved)) << values;
    EXPECT_FALSE(Contains(values, "9.9")) << values;
  }
  // Between two steps as well.
  bench.Unplug();
  ASSERT_TRUE(bench.Until([&] { return bench.Says("Serial line lost"); }));
  bench.Click("frmWhatsNext", "Option1", 2);
  bench.Click("frmWhatsNext", "NextButton");
  bench.Click("frmAcquire", "Command1");
  bench.Plug();
  ASSERT_TRUE(bench.Read("0.0060", 10));
  bench.Click("frmAcquire", "Command1");
  EXPECT_EQ(bench.kelp.frmAcquire.txtBlank[kBoxEndBlank].Text, "0.0060");
}

TEST(LineFaults, NoiseAndFloodsLeaveMemoryFlatAndReadingsResume) {
  Bench bench;
  bench.Click("frmAcquire", "Command1");
  ASSERT_TRUE(bench.Read("0.0050", 1));
  const char* asked = std::getenv("KELP_FLOOD_SECONDS");
  const std::chrono::seconds flood(asked != nullptr ? std::atoi(asked) : 3);
  std::mt19937 random(7);
  std::string noise(1 << 20, 'x');
  const std::string endless = noise;
  for (char& c : noise) c = static_cast<char>(random());
  std::string lines;
  for (int i = 0; i < 100; ++i) lines += InstrumentLine("0.0050");

  using Clock = std::chrono::steady_clock;
  // Sends a text again and again, every 10 ms, so often or so long.
  const auto send = [&](const std::string& text, std::size_t piece,
                        const std::function<bool(std::size_t)>& more) {
    std::atomic<bool> sending = true;
    std::thread sender([&, next = Clock::now()]() mutable {
      for (std::size_t i = 0; more(i); ++i) {
        bench.cable->Send(text.substr(i * piece % text.size(), piece));
        std::this_thread::sleep_until(next += std::chrono::milliseconds(10));
      }
      sending = false;
    });
    Clock::duration slowest{};
    while (sending) {
      bench.host.Let(10, {});
      const auto start = Clock::now();
      bench.host.Post({.Kind = EventKind::Focus, .Place = {"frmAcquire", "Combo1"}});
      slowest = std::max(slowest, Clock::now() - start);
    }
    sender.join();
    return slowest;
  };
  send(lines, lines.size(), [](std::size_t i) { return i < 20; });
  const long before = ResidentKiB();
  const int readings = bench.kelp.run.ReadCount;
  for (const std::string* text : {&endless, const_cast<const std::string*>(&noise)})
    send(*text, 16000, [&](std::size_t i) { return i * 16000 < text->size(); });
  // Noise may hold a "=": the one line that ends it is read as noise, the next one as what it is.
  const auto resumes = [&](const std::string& value, const std::string& shown) {
    return bench.Until([&] {
      bench.cable->Send(InstrumentLine(value));
      return bench.kelp.frmAcquire.txtStats[1].Text == shown;
    });
  };
  EXPECT_TRUE(resumes("0.0062", "0.006"));
  const auto end = Clock::now() + flood;
  const auto slowest = send(lines, lines.size(), [&](std::size_t) { return Clock::now() < end; });
  EXPECT_GT(bench.kelp.run.ReadCount, readings + 10);
  EXPECT_LT(slowest, std::chrono::milliseconds(500)) << "the operator waits";
  bench.host.Let(200, {});
  EXPECT_TRUE(resumes("0.0071", "0.007"));
  const long grown = ResidentKiB() - before;
  std::printf("flood of %lld s: %d readings taken, memory grown by %ld KiB\n",
              static_cast<long long>(flood.count()), bench.kelp.run.ReadCount - readings, grown);
  EXPECT_LT(grown, 4096);
}

}  // namespace kelp
