// SPDX-License-Identifier: GPL-3.0-or-later
// kelp-fluorometer: the simulated fluorometer at the other end of a serial line, so that the real serial path
// can be tried with no instrument at hand. Standard input takes what an operator does to the instrument.
#include <charconv>
#include <chrono>
#include <cmath>
#include <condition_variable>
#include <cstdlib>
#include <deque>
#include <iostream>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "console/instrument_end.hpp"
#include "platform/arguments.hpp"
#include "script/words.hpp"
#include "simulator/simulated_fluorometer.hpp"

namespace kelp {

namespace {

using Clock = std::chrono::steady_clock;

constexpr const char* kHelp =
    "\n"
    "  --rate LINES        lines a second (1); each line is a second of the instrument's life\n"
    "  --seed SEED         of noise and of samples (1)\n";
constexpr const char* kCommandsHelp =
    "  --help, --version   print this, or the version, and end\n"
    "\n"
    "Commands on standard input:\n"
    "  tube blank | tube copro LEVEL | tube standard LEVEL | tube sample LEVEL   put it in\n"
    "  empty               take it out\n"
    "  acid RATIO          the reading falls to the level divided by RATIO\n"
    "  noise SD            of the readings from now on; 0 for the built-in noise\n"
    "  send TEXT           send TEXT, with \\r \\n \\\\ \\xHH as in C\n"
    "  hangup              unplug the line and plug it in again\n"
    "  quit                end\n";

struct Options {
  double rate = 1;
  std::uint32_t seed = 1;
  LineOptions line = {};
};

template <class Number>
std::optional<Number> NumberIn(std::string_view text) {
  Number number{};
  const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
  if (text.empty() || result.ec != std::errc() || result.ptr != text.data() + text.size()) return {};
  return number;
}

// Lines of standard input, which no machine lets every kind of program wait for together with a time.
class Commands {
 public:
  Commands() : reader_([this] { Read(); }) {}
  /// The process ends without waiting for the reader, which nothing wakes.
  ~Commands() { reader_.detach(); }
  Commands(const Commands&) = delete;
  Commands& operator=(const Commands&) = delete;

  /// The next line, or nothing when none has come by then.
  std::optional<std::string> Next(Clock::time_point until) {
    std::unique_lock lock(mutex_);
    if (!came_.wait_until(lock, until, [this] { return !lines_.empty(); })) return std::nullopt;
    std::string line = std::move(lines_.front());
    lines_.pop_front();
    return line;
  }

 private:
  void Read() {
    for (std::string line; std::getline(std::cin, line);) {
      if (line.ends_with('\r')) line.pop_back();
      const std::lock_guard lock(mutex_);
      lines_.push_back(std::move(line));
      came_.notify_one();
    }
  }

  std::mutex mutex_ = {};
  std::condition_variable came_ = {};
  std::deque<std::string> lines_ = {};
  std::thread reader_;
};

class Bench {
 public:
  explicit Bench(Options options) : options_(std::move(options)), fluorometer_(options_.seed) { Connect(); }

  /// Sends lines at their time and takes commands until "quit". Without a standard input it only sends.
  void Run();

 private:
  void Connect();
  void Obey(std::string_view line);
  void PutIn(std::string_view kind, std::string_view level);

  Options options_;
  SimulatedFluorometer fluorometer_;
  std::unique_ptr<InstrumentEnd> line_ = {};
  bool quit_ = false;
};

void Bench::Connect() {
  line_.reset();
  line_ = PlugIn(options_.line);
  if (!line_->Path().empty()) std::cout << line_->Path() << std::endl;
}

void Bench::Run() {
  Commands commands;
  const auto between =
      std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(1 / options_.rate));
  auto next = Clock::now() + between;
  while (!quit_) {
    if (Clock::now() >= next) {
      line_->Send(fluorometer_.NextLine());
      next += between;
    }
    const auto command = commands.Next(next);
    try {
      if (command) Obey(*command);
    } catch (const ScriptFault& fault) {
      std::cerr << "kelp-fluorometer: " << fault.what << std::endl;
    }
  }
}

void Bench::Obey(std::string_view line) {
  const std::string_view command = TakeWord(line);
  if (command.empty()) return;
  if (command == "send") {
    const auto text = Unescaped(line);
    if (!text) ScriptIsWrong("an escape is wrong; \\r, \\n, \\\\ and \\xHH can be used");
    line_->Send(*text);
    return;
  }
  const std::string_view kind = command == "tube" ? TakeWord(line) : "";
  const std::string_view word = TakeWord(line);
  ExpectEnd(line);
  const double number = NumberIn<double>(word).value_or(-1);
  if (command == "tube")
    PutIn(kind, word);
  else if (command == "empty")
    fluorometer_.Empty();
  else if (command == "acid" && number > 0)
    fluorometer_.AddAcid(number);
  else if (command == "noise" && number >= 0 && number <= 100)
    fluorometer_.SetNoise(number);
  else if (command == "hangup")
    Connect();
  else if (command == "quit")
    quit_ = true;
  else
    ScriptIsWrong("unknown command or wrong number in \"" + std::string(command) + " " + std::string(word) +
                  "\"; --help lists the commands");
}

void Bench::PutIn(std::string_view kind, std::string_view level) {
  if (kind == "blank" && level.empty()) return fluorometer_.Load(kBlankLevel);
  const double number = NumberIn<double>(level).value_or(-1);
  const bool known = kind == "copro" || kind == "standard" || kind == "sample";
  if (!known || number < 0 || number > 1000)
    ScriptIsWrong("a tube is blank, copro LEVEL, standard LEVEL or sample LEVEL, with a level of 0 to 1000");
  fluorometer_.Load(number);
}

// What is wrong with the command line, or "".
std::string Take(Options& options, std::string_view name, std::string_view value) {
  if (name == "--rate") {
    options.rate = NumberIn<double>(value).value_or(0);
    return options.rate >= 0.01 && options.rate <= 10000 ? "" : "--rate is 0.01 to 10000 lines a second";
  }
  if (name == "--seed") {
    const auto seed = NumberIn<std::uint32_t>(value);
    options.seed = seed.value_or(1);
    return seed ? "" : "--seed is a whole number";
  }
  if (name == kLineOption) {
    (name == "--link" ? options.line.Link : options.line.Port) = value;
    return value.empty() ? std::string(name) + " wants a path or a device" : "";
  }
  return "unknown option \"" + std::string(name) + "\"; --help lists the options";
}

int Main(const std::vector<std::string>& arguments) {
  Options options;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    if (arguments[i] == "--help" || arguments[i] == "--version") {
      if (arguments[i] == "--help")
        std::cout << "Usage: kelp-fluorometer [options]\n"
                  << kLineHelp[0] << kHelp << kLineHelp[1] << kCommandsHelp;
      else
        std::cout << "kelp-fluorometer " KELP_VERSION "\n";
      return 0;
    }
    const auto sign = arguments[i].find('=');
    const std::string name = arguments[i].substr(0, sign);
    std::string value;
    if (sign != std::string::npos)
      value = arguments[i].substr(sign + 1);
    else if (i + 1 < arguments.size())
      value = arguments[++i];
    const std::string trouble = Take(options, name, value);
    if (!trouble.empty()) {
      std::cerr << "kelp-fluorometer: " << trouble << std::endl;
      return 2;
    }
  }
  Bench(options).Run();
  return 0;
}

}  // namespace

}  // namespace kelp

int main(int argc, char** argv) {
  int status = 1;
  try {
    status = kelp::Main(kelp::HostArguments(argc, argv));
  } catch (const std::exception& error) {
    std::cerr << "kelp-fluorometer: " << error.what() << std::endl;
  }
  // Not exit(): the reader of standard input may hold its lock for ever.
  std::cout.flush();
  std::_Exit(status);
}
