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

bool StartsWithOption(const std::string& word, const std::string& option) {
  return word == option || word.starts_with(option + "=");
}

// Takes the words that only the desktop knows; the others are for the console's reader.
struct DesktopWords {
  std::vector<std::string> others = {};
  std::string script = {};
  std::string simulate = {};  ///< as the console's --instrument names it
  std::string problem = {};

  explicit DesktopWords(const std::vector<std::string>& words) {
    for (std::size_t i = 0; i < words.size(); ++i) {
      const std::string& word = words[i];
      const std::string value = i + 1 < words.size() ? words[i + 1] : "";
      const std::size_t sign = word.find('=');
      if (word == "-platform" || word == "-style" || word == "-display") {
        ++i;
      } else if (StartsWithOption(word, "--simulate")) {
        simulate = sign == std::string::npos ? "sim" : "sim:" + word.substr(sign + 1);
      } else if (StartsWithOption(word, "--script")) {
        script = sign == std::string::npos ? value : word.substr(sign + 1);
        if (sign == std::string::npos) ++i;
        if (script.empty()) problem = "--script wants a file";
      } else if (StartsWithOption(word, "--instrument") || word == "--watch" || !word.starts_with("-")) {
        problem = "unknown option \"" + word + "\"; --help lists the options";
      } else {
        others.push_back(word);
        const bool takesNext =
            word == "--drives" || word == "--drive" || word == "--port" || word == "--clock";
        if (takesNext && i + 1 < words.size()) others.push_back(words[++i]);
      }
    }
    if (!simulate.empty()) others.push_back("--instrument=" + simulate);
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
