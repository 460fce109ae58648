// kelp-fluorometer: the simulated fluorometer on a pseudo-terminal, so that the real serial path can be
// tried with no instrument at hand. Standard output has the device's path, standard input takes what an
// operator does to the instrument.
#include <poll.h>
#include <unistd.h>

#include <charconv>
#include <chrono>
#include <cmath>
#include <filesystem>
#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "console/posix/pseudo_terminal.hpp"
#include "script/words.hpp"
#include "simulator/simulated_fluorometer.hpp"

namespace kelp {

namespace {

using Clock = std::chrono::steady_clock;

constexpr const char* kHelp =
    "Usage: kelp-fluorometer [options]\n"
    "Opens a pseudo-terminal, prints its path and sends a simulated fluorometer's lines on it.\n"
    "\n"
    "  --rate LINES        lines a second (1); each line is a second of the instrument's life\n"
    "  --seed SEED         of noise and of samples (1)\n"
    "  --link PATH         a link to the pseudo-terminal, which stays when the line hangs up\n"
    "  --help, --version   print this, or the version, and end\n"
    "\n"
    "Commands on standard input:\n"
    "  tube blank | tube copro LEVEL | tube standard LEVEL | tube sample LEVEL   put it in\n"
    "  empty               take it out\n"
    "  acid RATIO          the reading falls to the level divided by RATIO\n"
    "  noise SD            of the readings from now on; 0 for the built-in noise\n"
    "  send TEXT           send TEXT, with \\r \\n \\\\ \\xHH as in C\n"
    "  hangup              unplug the line and plug it in again: a new path is printed\n"
    "  quit                end\n";

struct Options {
  double rate = 1;
  std::uint32_t seed = 1;
  std::string link = {};
};

template <class Number>
std::optional<Number> NumberIn(std::string_view text) {
  Number number{};
  const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
  if (text.empty() || result.ec != std::errc() || result.ptr != text.data() + text.size()) return {};
  return number;
}

class Bench {
 public:
  explicit Bench(Options options) : options_(std::move(options)), fluorometer_(options_.seed) { PlugIn(); }
  ~Bench() {
    std::error_code ignored;
    if (std::filesystem::is_symlink(options_.link, ignored)) std::filesystem::remove(options_.link, ignored);
  }
  Bench(const Bench&) = delete;
  Bench& operator=(const Bench&) = delete;

  /// Sends lines at their time and takes commands until "quit". Without a standard input it only sends.
  void Run();

 private:
  void PlugIn();
  void TakeCommands();
  void Obey(std::string_view line);
  void PutIn(std::string_view kind, std::string_view level);

  Options options_;
  SimulatedFluorometer fluorometer_;
  std::unique_ptr<PseudoTerminal> terminal_ = {};
  std::string input_ = {};
  bool inputOpen_ = true;
  bool quit_ = false;
};

void Bench::PlugIn() {
  terminal_.reset();
  terminal_ = std::make_unique<PseudoTerminal>();
  if (!options_.link.empty()) {
    // Only a link of an earlier time gives way: anything else there is somebody's file.
    std::error_code missing;
    const auto status = std::filesystem::symlink_status(options_.link, missing);
    if (std::filesystem::is_symlink(status))
      std::filesystem::remove(options_.link);
    else if (std::filesystem::exists(status))
      throw std::runtime_error("--link " + options_.link +
                               ": a file or folder of that name is there; choose a name that is free");
    std::filesystem::create_symlink(terminal_->Path(), options_.link);
  }
  std::cout << terminal_->Path() << std::endl;
}

void Bench::Run() {
  const auto between =
      std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(1 / options_.rate));
  auto next = Clock::now() + between;
  while (!quit_) {
    if (Clock::now() >= next) {
      terminal_->Send(fluorometer_.NextLine());
      next += between;
    }
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(next - Clock::now()).count();
    pollfd input{inputOpen_ ? STDIN_FILENO : -1, POLLIN, 0};
    ::poll(&input, 1, static_cast<int>(std::max<std::int64_t>(0, left)));
    if (input.revents != 0) TakeCommands();
  }
}

void Bench::TakeCommands() {
  char block[4096];
  const ssize_t count = ::read(STDIN_FILENO, block, sizeof block);
  if (count <= 0) inputOpen_ = false;
  if (count > 0) input_.append(block, static_cast<std::size_t>(count));
  for (auto end = input_.find('\n'); end != std::string::npos && !quit_; end = input_.find('\n')) {
    std::string line = input_.substr(0, end);
    input_.erase(0, end + 1);
    if (line.ends_with('\r')) line.pop_back();
    try {
      Obey(line);
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
    terminal_->Send(*text);
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
    PlugIn();
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
  if (name == "--link") {
    options.link = value;
    return value.empty() ? "--link wants a path" : "";
  }
  return "unknown option \"" + std::string(name) + "\"; --help lists the options";
}

int Main(const std::vector<std::string>& arguments) {
  Options options;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    if (arguments[i] == "--help" || arguments[i] == "--version") {
      std::cout << (arguments[i] == "--help" ? kHelp : "kelp-fluorometer " KELP_VERSION "\n");
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
  try {
    return kelp::Main({argv + 1, argv + argc});
  } catch (const std::exception& error) {
    std::cerr << "kelp-fluorometer: " << error.what() << std::endl;
    return 1;
  }
}
