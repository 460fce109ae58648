// SPDX-License-Identifier: GPL-3.0-or-later
// What the desktop program costs, on the display it is started on (bench/desktop_figures.sh brings one):
// from exec to the first picture, from the click to the acquisition screen, from the last byte of a line
// to the reading on the screen, processor time, and memory in a station of a hundred samples.
//
// Usage: kelp_desktop_figures [STARTS]; starts itself that many times (20) and prints the medians. Ends
// with 1 when a figure is over its bound.
#include <sys/wait.h>
#include <unistd.h>

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTimer>
#include <algorithm>
#include <atomic>
#include <cstdio>
#include <cstring>
#include <functional>
#include <map>
#include <thread>

#include "acquire/instrument_line.hpp"
#include "bench/floor_window.hpp"
#include "bench/neighbour.hpp"
#include "bench/watcher.hpp"
#include "console/posix/pseudo_terminal.hpp"
#include "core/captions.hpp"
#include "core/numbers.hpp"
#include "desktop/machine/desktop_run.hpp"
#include "desktop/machine/early_fonts.hpp"

namespace {

using namespace kelp;

constexpr int kLines = 400;
constexpr int kSamples = 100;
constexpr int kWaitSeconds = 10;

class Figures {
 public:
  Figures(Watcher& watcher, const std::string& drives, double started)
      : watcher_(watcher), started_(started), run_([&] {
          Options options;
          options.Instrument = InstrumentKind::Device;
          options.Drives = drives;
          options.Ports[1] = line_.Path();
          return options;
        }()) {
    run_.windows().SoundSwitch()->setChecked(false);
    run_.Start();
  }

  void Start() {
    Say("first", watcher_.PictureOf("frmMain") - started_);
    Click("frmMain", "Command1", 0);
    AnswerYes();
    Click("frmLogin", "cmdOK");
    Edit("frmCreateBase", 2, std::to_string(kSamples));
    watcher_.processEvents();
    const double clicked = Now();
    Click("frmCreateBase", "cmdCreateBase", 0);
    watcher_.PictureOf("frmAcquire");
    Say("screen", watcher_.At - clicked);
  }

  void Waiting(
      const char* name, const std::function<double()>& seconds = [] { return CpuSeconds(); }) {
    // The alarm of a silent line comes up once, and the first of its digits are drawn in each box.
    Rest(25);
    const double before = seconds();
    Rest(kWaitSeconds);
    Say(name, (seconds() - before) / kWaitSeconds * 100);
  }

  void BeginReading() {
    Click("frmAcquire", "Command1");
    Click("frmAcquire", "Command1");
  }

  // A plain serial terminal reads the same lines beside it, where one is installed and has its line open.
  void ReadingEachSecond() {
    Neighbour terminal;
    std::atomic<bool> stop = false;
    std::thread instrument([&] {
      for (int i = 0; !stop; ++i) {
        const std::string line = InstrumentLine(Fixed(0.005 + 0.001 * (i % 2), 4));
        line_.Send(line);
        terminal.Send(line);
        std::this_thread::sleep_for(std::chrono::seconds(1));
      }
    });

    Rest(4);
    const double before = terminal.CpuSeconds();
    const double begun = Now();
    // The instrument's own thread is no part of the program.
    Waiting("reading", [&] { return CpuSeconds() - CpuSeconds(instrument); });
    if (terminal.Reads()) {
      Say("terminal", (terminal.CpuSeconds() - before) / (Now() - begun) * 1e5);
      Say("terminalmemory", terminal.PeakMegabytes());
    }
    stop = true;
    instrument.join();
  }

  void Latency() {
    std::vector<double> latencies;
    for (int i = 0; i < kLines; ++i) {
      std::atomic<double> sent = 0;
      const auto points = run_.program().run.Chart.PointsAdded();
      std::thread instrument([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(3));
        sent = Now();
        line_.Send(InstrumentLine(Fixed(0.005 + 0.001 * (i % 2), 4)));
      });
      watcher_.Until(
          [&] { return run_.program().run.Chart.PointsAdded() > points && sent > 0 && watcher_.At > sent; });
      instrument.join();
      latencies.push_back(watcher_.At - sent);
    }
    std::sort(latencies.begin(), latencies.end());
    Say("painted", latencies[latencies.size() / 2]);
    Say("painted99", latencies[latencies.size() * 99 / 100]);
  }

  // Autoread takes the values; the instrument sends what the button asks for, as fast as it is read.
  void Station() {
    FrmAcquire& form = run_.program().frmAcquire;
    Click("frmAcquire", "Check1");
    while (form.Command1.Caption != captions::kWhatsNext) {
      const std::string caption = form.Command1.Caption;
      if (caption.starts_with("Load")) Click("frmAcquire", "Command1");
      const bool acid = captions::WaitsForAcid(caption) || caption.ends_with("Ra");
      const auto asks = [&](const char* what) { return caption.find(what) != std::string::npos; };
      const double level = asks("Blank") ? 0.005 : asks("3-1") ? 1.54 : asks("2-5") ? 5.04 : acid ? 1.1 : 2.1;
      const auto points = run_.program().run.Chart.PointsAdded();
      if (form.Command1.Caption == captions::kWhatsNext) break;
      // Reads that are all the same have no SD.
      line_.Send(InstrumentLine(Fixed(level + 0.0002 * static_cast<double>(points % 2), 4)));
      watcher_.Until([&] { return run_.program().run.Chart.PointsAdded() > points; });
    }
    Say("memory", PeakMegabytes());
  }

 private:
  static void Say(const char* name, double figure) { std::printf("%s %.3f\n", name, figure); }
  void Rest(int seconds) {
    const double end = Now() + seconds * 1000;
    QTimer::singleShot(seconds * 1000, [] {});
    while (Now() < end) watcher_.processEvents(QEventLoop::WaitForMoreEvents);
  }
  void Click(const char* screen, const char* control, int index = -1) {
    const auto* button = qobject_cast<QAbstractButton*>(run_.windows().WidgetOf({screen, control, index}));
    if (button != nullptr)
      const_cast<QAbstractButton*>(button)->click();
    else
      run_.Post({.Kind = EventKind::Click, .Place = {screen, control, index}});
  }
  void Edit(const char* screen, int index, const std::string& text) {
    run_.Post({.Kind = EventKind::Edit, .Place = {screen, "Text1", index}, .Text = text});
  }
  static void AnswerYes() {
    QTimer::singleShot(100, [] {
      if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget()))
        box->button(QMessageBox::Yes)->click();
    });
  }

  Watcher& watcher_;
  double started_;
  PseudoTerminal line_ = {};
  DesktopRun run_;
};

// A process of its own: its first picture, and with `all` the other figures too.
int Measure(int argc, char** argv) {
  const EarlyFonts fonts;
  Watcher watcher(argc, argv);
  Figures figures(watcher, argv[4], std::atof(argv[2]));
  figures.Start();
  if (std::strcmp(argv[3], "all") == 0) {
    figures.Waiting("idle");
    figures.BeginReading();
    figures.Waiting("waiting");
    figures.ReadingEachSecond();
    figures.Latency();
    figures.Station();
  }
  std::fflush(stdout);
  ::_exit(0);
}

void PutConfiguration(const QTemporaryDir& drives) {
  QDir(drives.path()).mkpath("drive_c/kelp");
  QFile::copy(KELP_SOURCE_DIR "/demo/kelp.cfg", drives.filePath("drive_c/kelp/kelp.cfg"));
  QFile::setPermissions(drives.filePath("drive_c/kelp/kelp.cfg"), QFile::ReadOwner | QFile::WriteOwner);
}

std::map<std::string, std::vector<double>> Collect(const char* self, int starts) {
  std::map<std::string, std::vector<double>> figures;
  // In turns, so that what else the machine does meets all three.
  for (int i = 0; i < 3 * starts; ++i) {
    // A start finds its configuration there: making the folder is no part of it.
    const QTemporaryDir drives;
    PutConfiguration(drives);
    const char* const parts[] = {i == 0 ? " all " : " first ", " empty ", " plain "};
    const std::string command = std::string(self) + " --measure " + std::to_string(Now()) + parts[i % 3] +
                                drives.path().toStdString();
    FILE* child = ::popen(command.c_str(), "r");
    char name[64];
    double figure = 0;
    while (child != nullptr && std::fscanf(child, "%63s %lf", name, &figure) == 2)
      figures[name].push_back(figure);
    if (child != nullptr) ::pclose(child);
  }
  return figures;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc == 5 && std::strcmp(argv[1], "--measure") == 0) {
    const std::string part = argv[3];
    return part == "empty" || part == "plain" ? MeasureFloor(argc, argv) : Measure(argc, argv);
  }
  struct Row {
    const char* name;
    const char* text;
    const char* unit;
    double bound;
  };
  const Row rows[] = {{"first", "exec to the first picture of the main window", "ms", 100},
                      {"empty", "the same of an empty window", "ms", 0},
                      {"plain", "the same of a window of plain labels and buttons", "ms", 0},
                      {"screen", "click to the picture of the acquisition screen", "ms", 150},
                      {"painted", "last byte to the painted reading, median", "ms", 1},
                      {"painted99", "last byte to the painted reading, p99", "ms", 0},
                      {"idle", "processor, nothing running", "%", 0.5},
                      {"waiting", "processor, waiting for readings", "%", 0.1},
                      {"reading", "processor, a reading a second", "%", 0},
                      {"terminal", "processor, GtkTerm beside it on the same lines", "%", 0},
                      {"terminalmemory", "peak memory of GtkTerm", "MB", 0},
                      {"memory", "peak memory in a station of 100 samples", "MB", 60}};
  auto figures = Collect(argv[0], argc > 1 ? std::max(1, std::atoi(argv[1])) : 20);
  int status = 0;
  for (const Row& row : rows) {
    std::vector<double>& values = figures[row.name];
    std::sort(values.begin(), values.end());
    if (values.empty()) {
      // GtkTerm may not be installed.
      const bool ours = std::strncmp(row.name, "terminal", 8) != 0;
      std::printf("%-50s not measured\n", row.text);
      if (ours) status = 1;
      continue;
    }
    const double median = values[values.size() / 2];
    const bool over = row.bound > 0 && median > row.bound;
    if (over) status = 1;
    std::printf("%-50s %8.3f %-3s  best %8.3f%s\n", row.text, median, row.unit, values.front(),
                over ? "  OVER ITS BOUND" : "");
  }
  return status;
}
