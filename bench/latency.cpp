// SPDX-License-Identifier: GPL-3.0-or-later
// How long a reading takes from the last byte written on the line to `txtStats(1)`, beside what the
// machine itself needs: a program blocked in poll() and read() on a line of its own. Both are measured in
// turns in one run, each in a process of its own; then what waiting for readings costs.
//
// Usage: kelp_latency [LINES]; ends with 1 when the median is more than twice that of poll() and read().
#include <fcntl.h>
#include <poll.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <new>
#include <sstream>
#include <thread>
#include <vector>

#include "acquire/instrument_line.hpp"
#include "console/device_host.hpp"
#include "console/posix/pseudo_terminal.hpp"
#include "core/numbers.hpp"
#include "platform/host.hpp"
#include "script/player.hpp"

namespace {

using namespace std::chrono_literals;

std::int64_t Now() {
  return std::chrono::duration_cast<std::chrono::nanoseconds>(
             std::chrono::steady_clock::now().time_since_epoch())
      .count();
}

// What a reader tells: how many lines it has seen, when the last one was there, and the processor time
// that a second of waiting took.
struct Reader {
  std::atomic<int> seen{-1};
  std::atomic<std::int64_t> at{0};
  std::atomic<std::int64_t> cpuNanoseconds{0};

  void See(int count) {
    at.store(Now());
    seen.store(count);
  }
};

constexpr auto kIdle = 5s;

std::int64_t CpuNanoseconds() {
  rusage used{};
  ::getrusage(RUSAGE_SELF, &used);
  const auto of = [](const timeval& time) { return (time.tv_sec * 1000000LL + time.tv_usec) * 1000; };
  return of(used.ru_utime) + of(used.ru_stime);
}

// The floor: blocked in poll(), then read(), then a look for the end of the reading.
void ReadPlainly(const std::string& device, int lines, Reader& reader) {
  const int line = ::open(device.c_str(), O_RDONLY | O_NOCTTY | O_NONBLOCK);
  std::string text;
  reader.See(0);
  for (int seen = 0; seen < lines;) {
    pollfd ready{line, POLLIN, 0};
    ::poll(&ready, 1, -1);
    char block[256];
    const ssize_t count = ::read(line, block, sizeof block);
    if (count > 0) text.append(block, static_cast<std::size_t>(count));
    if (text.find("RAW)") == std::string::npos) continue;
    text.clear();
    reader.See(++seen);
  }
}

// The whole program, as kelp-console runs it on a device.
void ReadWithKelp(const std::string& device, int lines, Reader& reader) {
  const auto drives = std::filesystem::temp_directory_path() / ("kelp-latency." + std::to_string(::getpid()));
  const kelp::DriveMap map(drives);
  const auto disk = kelp::MakeHostDisk(map);
  kelp::DeviceMachine machine(*disk, {{1, device}});
  machine.SetClock(kelp::HostNow());
  kelp::Kelp program(machine);
  kelp::DeviceHost host(program, machine);
  std::istringstream script(
      "answer No\nanswer OK\nclick frmMain.Command1(0)\nanswer Yes\nclick frmLogin.cmdOK\n"
      "type frmCreateBase.Text1(2) 3\nclick frmCreateBase.cmdCreateBase(0)\nclick frmAcquire.Command1\n"
      "click frmAcquire.Command1\nexpect frmAcquire.Command1 Read Blank\n");
  const kelp::ScriptResult opened = kelp::ScriptPlayer(host).Play("-", script);
  if (!opened.message.empty()) std::fprintf(stderr, "%s\n", opened.message.c_str());
  host.Let(100, {});
  reader.See(0);
  std::string shown = program.frmAcquire.txtStats[1].Text;
  int seen = 0;
  host.Let(600'000, [&] {
    if (program.frmAcquire.txtStats[1].Text == shown) return false;
    shown = program.frmAcquire.txtStats[1].Text;
    reader.See(++seen);
    return seen == lines;
  });
  const std::int64_t before = CpuNanoseconds();
  host.Let(std::chrono::milliseconds(kIdle).count(), {});
  reader.cpuNanoseconds.store(CpuNanoseconds() - before);
  std::filesystem::remove_all(drives);
}

// A reader in a process of its own, on a line of its own.
class Contestant {
 public:
  Contestant(const std::function<void(const std::string&, int, Reader&)>& read, int lines) {
    void* shared = ::mmap(nullptr, sizeof(Reader), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (shared == MAP_FAILED) std::abort();
    reader_ = new (shared) Reader;
    process_ = ::fork();
    if (process_ == 0) {
      read(line_.Path(), lines, *reader_);
      ::_exit(0);
    }
    while (reader_->seen.load() < 0) std::this_thread::sleep_for(1ms);
  }

  // Microseconds from the last byte of the `count`-th line to the reading.
  double Measure(int count) {
    std::this_thread::sleep_for(3ms);
    const std::string text = kelp::InstrumentLine(kelp::Fixed(0.001 * (1 + count % 2), 3));
    const std::int64_t sent = Now();
    line_.Send(text);
    while (reader_->seen.load() < count) std::this_thread::sleep_for(100us);
    latencies_.push_back(static_cast<double>(reader_->at.load() - sent) / 1000);
    return latencies_.back();
  }

  double Report(const char* name) {
    ::waitpid(process_, nullptr, 0);
    std::sort(latencies_.begin(), latencies_.end());
    const double median = latencies_[latencies_.size() / 2];
    std::printf("%-24s median %6.1f us   p99 %6.1f us\n", name, median,
                latencies_[latencies_.size() * 99 / 100]);
    return median;
  }

  [[nodiscard]] double WaitingPercent() const {
    return static_cast<double>(reader_->cpuNanoseconds.load()) /
           static_cast<double>(std::chrono::nanoseconds(kIdle).count()) * 100;
  }

 private:
  kelp::PseudoTerminal line_ = {};
  Reader* reader_ = nullptr;
  pid_t process_ = 0;
  std::vector<double> latencies_ = {};
};

}  // namespace

int main(int argc, char** argv) {
  const int lines = argc > 1 ? std::max(1, std::atoi(argv[1])) : 1000;
  Contestant plain(ReadPlainly, lines);
  Contestant program(ReadWithKelp, lines);
  for (int count = 1; count <= lines; ++count) {
    plain.Measure(count);
    program.Measure(count);
  }
  const double floor = plain.Report("poll() and read()");
  const double median = program.Report("reading in txtStats(1)");
  std::printf("ratio of the medians     %.2f\n", median / floor);
  std::printf("waiting for readings     %.2f %% of a core\n", program.WaitingPercent());
  return median <= 2 * floor ? 0 : 1;
}
