// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/machine/command_line.hpp"

namespace kelp {

const char* const kDesktopHelp =
    "Usage: kelp [options]\n"
    "Leads through a station on a bench fluorometer.\n"
    "\n"
    "  --drives DIR        where the drives live (drive c is DIR/drive_c); created when absent\n"
    "  --drive X=DIR       one drive elsewhere; may be repeated\n"
    "  --port N=DEVICE     the device of port number N; may be repeated\n"
    "  --simulate[=SEED]   read the simulated fluorometer, which follows the operator's steps\n"
    "  --script FILE       play an operator script in the windows, with the program's own time\n"
    "  --clock TIME        what the clock reads when the script starts, YYYY-MM-DDTHH:MM:SS\n"
    "                      (default: now)\n"
    "  --quick             let the script go on without waiting for the disk after each line\n"
    "  --help, --version   print this, or the version, and end\n"
    "\n"
    "What is given here holds for this run; Machine settings, on the main window, keep drives and ports.\n"
    "Exit status: that of kelp-console for a script and for a wrong option, else 0.\n";

namespace {

bool Is(const std::string& word, const std::string& option) {
  return word == option || word.starts_with(option + "=");
}

bool TakesNext(const std::string& word) {
  return word == "--drives" || word == "--drive" || word == "--port" || word == "--clock";
}

// Takes the words that only the desktop knows; the others are for the console's reader.
class DesktopWords {
 public:
  std::vector<std::string> others = {};
  std::string script = {};
  std::string problem = {};

  explicit DesktopWords(const std::vector<std::string>& words) {
    for (std::size_t i = 0; i < words.size(); ++i)
      i += Take(words[i], i + 1 < words.size() ? words[i + 1] : "");
  }

 private:
  // Returns how many words behind this one were taken too.
  std::size_t Take(const std::string& word, const std::string& next) {
    const std::size_t sign = word.find('=');
    if (word == "-platform" || word == "-style" || word == "-display") return 1;
    if (Is(word, "--simulate")) {
      others.push_back("--instrument=sim" + (sign == std::string::npos ? "" : ":" + word.substr(sign + 1)));
    } else if (Is(word, "--script")) {
      script = sign == std::string::npos ? next : word.substr(sign + 1);
      if (script.empty()) problem = "--script wants a file";
      return sign == std::string::npos ? 1 : 0;
    } else if (Is(word, "--instrument") || word == "--watch" || !word.starts_with("-")) {
      problem = "unknown option \"" + word + "\"; --help lists the options";
    } else {
      others.push_back(word);
      if (!TakesNext(word) || next.empty()) return 0;
      others.push_back(next);
      return 1;
    }
    return 0;
  }
};

}  // namespace

Options ReadCommandLine(const std::vector<std::string>& words) {
  const DesktopWords own(words);
  Options options = ReadOptions(own.others);
  if (options.Problem.empty()) options.Problem = own.problem;
  options.Script = own.script;
  if (own.script.empty() && options.Instrument == InstrumentKind::Script)
    options.Instrument = InstrumentKind::Device;
  if (options.Problem.empty() && own.script.empty() && (options.Clock || options.Quick))
    options.Problem = std::string(options.Clock ? "--clock" : "--quick") + " goes with --script only";
  return options;
}

bool SaysWhere(const Options& options) {
  return options.Instrument != InstrumentKind::Device || options.Drives || !options.Drive.empty() ||
         !options.Ports.empty();
}

}  // namespace kelp
