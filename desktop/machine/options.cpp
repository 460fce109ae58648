#include "desktop/machine/options.hpp"

#include <charconv>

namespace kelp {

namespace {

// "X=REST" split at the first "="; an empty part is missing.
struct Pair {
  std::string key;
  std::string value;
};

Pair SplitPair(const std::string& word) {
  const std::size_t at = word.find('=');
  if (at == std::string::npos) return {word, ""};
  return {word.substr(0, at), word.substr(at + 1)};
}

std::string TakeDrive(Options& options, const std::string& word) {
  const auto [key, folder] = SplitPair(word);
  const char letter = key.size() == 1 ? static_cast<char>(key[0] | 0x20) : '\0';
  if (letter < 'a' || letter > 'z' || folder.empty())
    return "--drive wants a letter and a folder, such as c=/data/c, not \"" + word + "\"";
  options.Drive[letter] = folder;
  return {};
}

std::string TakePort(Options& options, const std::string& word) {
  const auto [key, device] = SplitPair(word);
  int number = 0;
  const auto [end, error] = std::from_chars(key.data(), key.data() + key.size(), number);
  if (error != std::errc() || end != key.data() + key.size() || number < 1 || device.empty())
    return "--port wants a number and a device, such as 1=/dev/ttyUSB0, not \"" + word + "\"";
  options.Port[number] = device;
  return {};
}

std::string TakeValue(Options& options, const std::string& name, const std::string& value) {
  if (name == "--drive") return TakeDrive(options, value);
  if (name == "--port") return TakePort(options, value);
  if (name == "--drives") options.Drives = value;
  if (name == "--script") options.Script = value;
  if (name == "--clock") options.Clock = value;
  return {};
}

}  // namespace

Options ReadOptions(const std::vector<std::string>& words) {
  Options options;
  for (std::size_t i = 0; i < words.size() && options.Problem.empty(); ++i) {
    const std::string& word = words[i];
    const bool ours = word == "--drives" || word == "--drive" || word == "--port" || word == "--script" ||
                      word == "--clock";
    const bool windowSystem = word == "-platform" || word == "-style" || word == "-display";
    if (word == "--help" || word == "-h") {
      options.Help = true;
    } else if (word == "--version") {
      options.Version = true;
    } else if (word == "--simulate") {
      options.Simulate = true;
    } else if (!ours && !windowSystem) {
      options.Problem = "there is no option \"" + word + "\"; --help lists them";
    } else if (i + 1 == words.size() || words[i + 1].empty()) {
      options.Problem = word + " wants a value; --help says which";
    } else {
      ++i;
      if (ours) options.Problem = TakeValue(options, word, words[i]);
    }
  }
  if (options.Problem.empty() && !options.Clock.empty() && options.Script.empty())
    options.Problem = "--clock goes with --script only";
  return options;
}

std::string HelpText() {
  return R"(kelp: leads through a station on a bench fluorometer

kelp [options]
  --drives DIR      where the drives live (drive c is DIR/drive_c); created when absent
  --drive X=DIR     one drive elsewhere; may be repeated
  --port N=DEVICE   the device of port number N; may be repeated
  --simulate        read the simulated fluorometer, for trying the program
  --script FILE     play an operator script in the windows, with the program's own time
  --clock TIME      what the clock reads when the script starts, YYYY-MM-DDTHH:MM:SS (default: now)
  --help --version

What is given here holds for this run. Machine settings, on the main window, keep drives and ports.
)";
}

}  // namespace kelp
