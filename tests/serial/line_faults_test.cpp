// SPDX-License-Identifier: GPL-3.0-or-later
// What can become of the instrument's line while a station runs: unplugged in every step and plugged in at
// another device path, noise, no line ends, a flood. KELP_FLOOD_SECONDS makes the flood longer.
#include <gtest/gtest.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <fstream>
#include <random>

#include "acquire/instrument_line.hpp"
#include "console/device_host.hpp"
#include "console/posix/pseudo_terminal.hpp"
#include "core/config.hpp"
#include "core/text.hpp"
#include "stage/memory_disk.hpp"
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
  std::string path = {};  ///< where it was plugged in last
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

  // Another device has the old path by now.
  void Plug() {
    cable = std::make_unique<PseudoTerminal>();
    const std::unique_ptr<PseudoTerminal> stranger = cable->Path() == path ? std::move(cable) : nullptr;
    if (!cable) cable = std::make_unique<PseudoTerminal>();
    path = cable->Path();
    fs::create_symlink(cable->Path(), link);
  }
  void Unplug() {
    cable.reset();
    fs::remove(link);
  }
  void Click(const char* screen, const char* control, int index = -1) {
    host.Post({.Kind = EventKind::Click, .Place = {screen, control, index}});
  }
  bool Until(const std::function<bool()>& reached) { return host.Let(10000, reached); }
  // Lines come in, one after the other, until the reading counter shows `count`.
  bool Read(const std::string& value, int count) {
    return Until([&] {
      if (kelp.run.ReadCount >= count) return true;
      cable->Send(InstrumentLine(value));
      return false;
    });
  }
  bool Says(const char* status) {
    return Until([&] { return StartsWith(kelp.frmAcquire.StatusBar1.Text, status); });
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
  FrmAcquire& form = bench.kelp.frmAcquire;
  for (const auto& [value, next] : {std::pair{"0.0050", "Load Copro 3-1"},
                                    {"1.5300", "Load Copro 2-5"},
                                    {"5.0300", "Load 1st Sample"},
                                    {"2.0000", "Acidify"},
                                    {"1.0000", "What's Next"}}) {
    bench.Click("frmAcquire", "Command1");
    ASSERT_TRUE(bench.Read(value, 3)) << next;
    bench.cable->Send("\r\nA =  9.9");
    ASSERT_TRUE(bench.Until([&] { return Contains(bench.kelp.loop.Accumulator, "9.9"); })) << next;
    bench.Unplug();
    ASSERT_TRUE(bench.Says("Serial line lost, trying again every second: ")) << next;
    EXPECT_EQ(bench.kelp.run.ReadCount, 3);
    bench.Plug();
    ASSERT_TRUE(bench.Says("Serial line open again")) << next;
    ASSERT_TRUE(bench.Read(value, 10));
    EXPECT_EQ(form.StatusBar1.Text, "Readings are coming in.");
    bench.Click("frmAcquire", "Command1");
    EXPECT_EQ(form.Command1.Caption, next);
    std::string values = form.datalog.Text(1, kColRb) + " " + form.datalog.Text(1, kColRa);
    for (const TextBox& box : form.txtBlank) values += " " + box.Text;
    EXPECT_TRUE(Contains(values, value) && !Contains(values, "9.9")) << values;
  }
  // Between two steps as well.
  bench.Unplug();
  ASSERT_TRUE(bench.Says("Serial line lost"));
  bench.Click("frmWhatsNext", "Option1", 2);
  bench.Click("frmWhatsNext", "NextButton");
  bench.Click("frmAcquire", "Command1");
  bench.Plug();
  ASSERT_TRUE(bench.Read("0.0060", 10));
  bench.Click("frmAcquire", "Command1");
  EXPECT_EQ(form.txtBlank[kBoxEndBlank].Text, "0.0060");
}

TEST(LineFaults, NoiseAndFloodsLeaveMemoryFlatAndReadingsResume) {
  using Clock = std::chrono::steady_clock;
  Bench bench;
  bench.Click("frmAcquire", "Command1");
  Clock::duration slowest{};
  // Pieces of a text, one every 10 ms; between them the operator does something.
  const auto send = [&](const std::string& text, std::size_t piece, std::size_t pieces) {
    auto next = Clock::now();
    for (std::size_t i = 0; i < pieces; ++i) {
      bench.cable->Send(text.substr(i * piece % text.size(), piece));
      next += std::chrono::milliseconds(10);
      const auto start = Clock::now();
      bench.host.Post({.Kind = EventKind::Focus, .Place = {"frmAcquire", "Combo1"}});
      slowest = std::max(slowest, Clock::now() - start);
      bench.host.Let(std::chrono::ceil<std::chrono::milliseconds>(next - Clock::now()).count(), {});
    }
  };
  // Noise may hold a "=": the one line that ends it is read as noise, the next one as what it is.
  const auto resumes = [&](const std::string& value, const std::string& shown) {
    return bench.Until([&] {
      bench.cable->Send(InstrumentLine(value));
      return bench.kelp.frmAcquire.txtStats[1].Text == shown;
    });
  };
  std::mt19937 random(7);
  const std::string endless(1 << 20, 'x');
  std::string noise = endless, lines;
  for (char& c : noise) c = static_cast<char>(random());
  for (int i = 0; i < 100; ++i) lines += InstrumentLine("0.0050");

  send(lines, lines.size(), 20);
  const long before = ResidentKiB();
  send(endless, 1 << 14, 64);
  send(noise, 1 << 14, 64);
  EXPECT_TRUE(resumes("0.0062", "0.006"));
  const char* asked = std::getenv("KELP_FLOOD_SECONDS");
  const std::size_t seconds = asked != nullptr ? std::strtoul(asked, nullptr, 10) : 3;
  const int readings = bench.kelp.run.ReadCount;
  const auto start = Clock::now();
  send(lines, lines.size(), seconds * 100);
  const double rate =
      static_cast<double>(seconds) * 1e4 / std::chrono::duration<double>(Clock::now() - start).count();
  EXPECT_GT(bench.kelp.run.ReadCount, readings + 10);
  EXPECT_TRUE(resumes("0.0071", "0.007"));
  const long grown = ResidentKiB() - before;
  std::printf("%.0f lines a second for %zu s: memory grown by %ld KiB, slowest event %.1f ms\n", rate,
              seconds, grown, std::chrono::duration<double, std::milli>(slowest).count());
#ifndef __SANITIZE_ADDRESS__  // it keeps what was freed
  EXPECT_LT(grown, 4096);
#endif
  EXPECT_LT(slowest, std::chrono::milliseconds(500)) << "the operator waits";
}

}  // namespace kelp
