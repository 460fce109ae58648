// SPDX-License-Identifier: GPL-3.0-or-later
#include "console/review/review_options.hpp"

#include <charconv>

#include "platform/error.hpp"

namespace kelp {

const char* const kReviewHelp =
    "Usage: kelp-console review FOLDER [options]\n"
    "Reviews the saved stations of a cruise: checks, control charts, profiles, final data.\n"
    "\n"
    "  FOLDER              the folder with the station files (chl001, chl002, ...)\n"
    "  --station N         this station only; may be repeated\n"
    "  --cruise NAME       stations of this cruise, where the folder holds two (default: the larger)\n"
    "  --html FILE         write one page with all pictures and checks\n"
    "  --csv FILE.csv      write the final data, and beside it FILE.txt, which describes them\n"
    "  --post-f F          F after the cruise; the final data use the mean of before and after\n"
    "  --post-tau T        tau after the cruise, likewise\n"
    "  --drives DIR        where the configuration's drives live, for blank limit and copro averages\n"
    "  --help              print this and end\n"
    "\n"
    "Without --html and --csv a table of the results goes to the terminal. Exit status: 0 done, whatever "
    "was\n"
    "found; 2 an option is wrong, or a file can't be read or written.\n";

namespace {

std::string TakeNumber(std::optional<double>& number, const std::string& name, const std::string& value) {
  double read = 0;
  const auto end = std::from_chars(value.data(), value.data() + value.size(), read);
  if (end.ec != std::errc() || end.ptr != value.data() + value.size())
    return name + " wants a number, not \"" + value + "\"";
  number = read;
  return {};
}

std::string TakeValue(ReviewOptions& options, const std::string& name, const std::string& value) {
  if (value.empty()) return name + " wants a value";
  if (name == "--station") {
    options.Stations.push_back(value);
  } else if (name == "--cruise") {
    options.Cruise = value;
  } else if (name == "--html") {
    options.Html = value;
  } else if (name == "--csv") {
    options.Csv = value;
  } else if (name == "--drives") {
    options.Drives = value;
  } else if (name == "--post-f") {
    return TakeNumber(options.Post.F, name, value);
  } else if (name == "--post-tau") {
    return TakeNumber(options.Post.Tau, name, value);
  } else {
    return "unknown option \"" + name + "\"; review --help lists the options";
  }
  return {};
}

std::string TakeOption(ReviewOptions& options, const std::vector<std::string>& arguments, std::size_t& i) {
  const std::string& argument = arguments[i];
  if (argument == "--help") {
    options.Help = true;
    return {};
  }
  const auto sign = argument.find('=');
  if (sign != std::string::npos)
    return TakeValue(options, argument.substr(0, sign), argument.substr(sign + 1));
  return TakeValue(options, argument, i + 1 < arguments.size() ? arguments[++i] : "");
}

}  // namespace

ReviewOptions ReadReviewOptions(const std::vector<std::string>& arguments) {
  ReviewOptions options;
  for (std::size_t i = 0; i < arguments.size() && options.Problem.empty(); ++i) {
    if (arguments[i].starts_with("--"))
      options.Problem = TakeOption(options, arguments, i);
    else if (!options.Folder.empty())
      options.Problem = "more than one folder is given: \"" + arguments[i] + "\"";
    else
      options.Folder = arguments[i];
  }
  if (options.Help || !options.Problem.empty()) return options;
  if (options.Folder.empty()) options.Problem = "review wants a folder; review --help says more";
  try {
    CheckPostCalibration(options.Post);
  } catch (const RunTimeError& error) {
    options.Problem = error.what();
  }
  return options;
}

}  // namespace kelp
