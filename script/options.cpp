// SPDX-License-Identifier: GPL-3.0-or-later
#include "script/options.hpp"

#include <cctype>
#include <charconv>

#include "core/date_time.hpp"
#include "core/text.hpp"
#include "platform/path_text.hpp"

namespace kelp {

const char* const kConsoleHelp =
    "Usage: kelp-console [options] [SCRIPT]\n"
    "       kelp-console review FOLDER [options]   (see kelp-console review --help)\n"
    "Plays an operator script on the whole program, without a display, or reviews a cruise's stations.\n"
    "\n"
    "  SCRIPT              the script; standard input when absent or \"-\"\n"
    "  --drives DIR        where the drives live (drive c is DIR/drive_c); created when absent\n"
    "  --drive X=DIR       one drive elsewhere; may be repeated\n"
    "  --port N=DEVICE     the device of port number N; may be repeated\n"
    "  --instrument KIND   script (default): readings come from the script\n"
    "                      sim[:SEED]: the simulated fluorometer, which follows the operator's steps\n"
    "                      device: the port of the configuration, in real time\n"
    "  --clock TIME        what the clock reads at the start, YYYY-MM-DDTHH:MM:SS (default: now)\n"
    "  --watch             print captions, saved values and results as they come, and at the end the\n"
    "                      results and the files written\n"
    "  --quick             don't wait for the disk after each line of the log: for trials and tests;\n"
    "                      sim does so by itself\n"
    "  --record [STATION]  list the stations of the record, or who stored what in one: its processing "
    "number\n"
    "                      or the path of its base file\n"
    "  --help, --version   print this, or the version, and end\n"
    "\n"
    "Exit status: 0 the script ended or the program was quit; 1 an expectation failed; 2 the script or\n"
    "an option is wrong; 3 a message box or file dialog came up with no answer waiting; 4 a run-time\n"
    "error was reported that the script did not expect. For 1 to 4 the last line on standard error says\n"
    "SCRIPT:LINE: what.\n";

namespace {

template <class Number>
std::optional<Number> WholeNumber(std::string_view text) {
  Number number = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
  if (text.empty() || result.ec != std::errc() || result.ptr != text.data() + text.size()) return {};
  return number;
}

std::string TakeDrive(ConsoleOptions& options, const std::string& value) {
  if (value.size() < 3 || value[1] != '=' || std::isalpha(static_cast<unsigned char>(value[0])) == 0)
    return "--drive wants X=DIR, such as q=/data/vault, not \"" + value + "\"";
  options.Drive[value[0]] = PlaceOf(value.substr(2));
  return {};
}

std::string TakePort(ConsoleOptions& options, const std::string& value) {
  const auto sign = value.find('=');
  const auto number = WholeNumber<int>(value.substr(0, sign));
  if (sign == std::string::npos || sign + 1 == value.size() || !number || *number < 1)
    return "--port wants N=DEVICE, such as 1=/dev/ttyUSB0, not \"" + value + "\"";
  options.Ports[*number] = value.substr(sign + 1);
  return {};
}

std::string TakeInstrument(ConsoleOptions& options, const std::string& value) {
  if (value == "script") {
    options.Instrument = InstrumentKind::Script;
  } else if (value == "device") {
    options.Instrument = InstrumentKind::Device;
  } else if (value == "sim" || StartsWith(value, "sim:")) {
    const auto seed =
        value == "sim" ? std::optional<std::uint32_t>(1) : WholeNumber<std::uint32_t>(value.substr(4));
    if (!seed)
      return "the seed of the simulated fluorometer is a whole number, not \"" + value.substr(4) + "\"";
    options.Instrument = InstrumentKind::Simulated;
    options.Seed = *seed;
  } else {
    return "--instrument is script, sim, sim:SEED or device, not \"" + value + "\"";
  }
  return {};
}

std::string TakeClock(ConsoleOptions& options, const std::string& value) {
  constexpr std::size_t kT = 10;
  std::string text = value;
  if (text.size() == 19 && text[kT] == 'T') {
    text[kT] = ' ';
    options.Clock = ParseDateTime(text);
  }
  return options.Clock ? "" : "--clock is YYYY-MM-DDTHH:MM:SS, not \"" + value + "\"";
}

std::string TakeValue(ConsoleOptions& options, std::string_view name, const std::string& value) {
  if (name == "--drives") {
    options.Drives = PlaceOf(value);
    return value.empty() ? "--drives wants a folder" : "";
  }
  if (name == "--drive") return TakeDrive(options, value);
  if (name == "--port") return TakePort(options, value);
  if (name == "--instrument") return TakeInstrument(options, value);
  return TakeClock(options, value);
}

bool TakesValue(std::string_view name) {
  for (const std::string_view known : {"--drives", "--drive", "--port", "--instrument", "--clock"})
    if (known == name) return true;
  return false;
}

// Takes the option at `i`, and its value, which may be the next argument or follow a "=".
std::string TakeOption(ConsoleOptions& options, const std::vector<std::string>& arguments, std::size_t& i) {
  const std::string& argument = arguments[i];
  const std::pair<std::string_view, bool*> flags[] = {{"--help", &options.Help},
                                                      {"--version", &options.Version},
                                                      {"--watch", &options.Watch},
                                                      {"--quick", &options.Quick},
                                                      {"--record", &options.Record}};
  for (const auto& [flag, value] : flags) {
    if (argument != flag) continue;
    *value = true;
    return {};
  }
  const auto sign = argument.find('=');
  const std::string name = argument.substr(0, sign);
  if (!TakesValue(name)) return "unknown option \"" + argument + "\"; --help lists the options";
  if (sign != std::string::npos) return TakeValue(options, name, argument.substr(sign + 1));
  if (i + 1 == arguments.size()) return name + " wants a value";
  return TakeValue(options, name, arguments[++i]);
}

}  // namespace

ConsoleOptions ReadOptions(const std::vector<std::string>& arguments) {
  ConsoleOptions options;
  bool scriptGiven = false;
  for (std::size_t i = 0; i < arguments.size() && options.Problem.empty(); ++i) {
    if (arguments[i].size() > 1 && arguments[i].front() == '-') {
      options.Problem = TakeOption(options, arguments, i);
    } else if (scriptGiven) {
      options.Problem = "more than one script is given: \"" + arguments[i] + "\"";
    } else {
      options.Script = arguments[i];
      scriptGiven = true;
    }
  }
  return options;
}

}  // namespace kelp
