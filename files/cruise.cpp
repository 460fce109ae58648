// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/cruise.hpp"

#include <algorithm>
#include <map>
#include <tuple>

#include "core/date_time.hpp"
#include "core/numbers.hpp"
#include "core/text.hpp"
#include "platform/error.hpp"

namespace kelp {

namespace {

void ReadOne(Disk& disk, Cruise& cruise, const std::string& file) {
  try {
    StationFile station = ReadStationFile(disk, cruise.Folder + file);
    const std::string procNum = ProcNumOfBaseFile(file);
    if (Val(station.ProcNum) != Val(procNum))
      throw RunTimeError(ErrorKind::File, "the file's name says station " + procNum +
                                              ", its line 5 station " + station.ProcNum +
                                              ": it was copied or renamed");
    cruise.Stations.push_back(std::move(station));
  } catch (const RunTimeError& error) {
    cruise.Left.push_back({file, Replaced(error.what(), cruise.Folder + file + ": ", "")});
  }
}

// The cruise of most stations; of two with as many, the one whose name comes later.
std::string MostFrequentCruise(const std::vector<StationFile>& stations) {
  std::map<std::string, int> counts;
  for (const StationFile& station : stations) ++counts[station.Cruise];
  std::string name;
  int most = 0;
  for (const auto& [cruise, count] : counts)
    if (count >= most) std::tie(name, most) = std::tie(cruise, count);
  return name;
}

void LeaveOutOthers(Cruise& cruise) {
  std::vector<StationFile> kept;
  for (StationFile& station : cruise.Stations) {
    if (SameIgnoringCase(station.Cruise, cruise.Name))
      kept.push_back(std::move(station));
    else
      cruise.Left.push_back({station.Path.substr(station.Path.rfind('\\') + 1),
                             "belongs to cruise " + station.Cruise + ", not to " + cruise.Name});
  }
  cruise.Stations = std::move(kept);
}

}  // namespace

std::optional<LocalTime> ReadTimeOf(const StationFile& station) {
  return ParseDateTime(station.ReadDate + " " + station.ReadTime);
}

std::optional<double> HoursToRun(const std::string& filtDate, const std::string& filtTime,
                                 const std::string& readDate, const std::string& readTime) {
  const auto filtered = ParseDateTime(filtDate + " " + filtTime);
  const auto read = ParseDateTime(readDate + " " + readTime);
  if (!filtered || !read) return {};
  return static_cast<double>((*read - *filtered).count()) / 3600;
}

std::string HoursText(double hours) { return hours < 0 ? "" : Fixed(hours, 1); }

Cruise ReadCruise(Disk& disk, const std::string& folder, const std::string& name, const Progress& progress) {
  if (!disk.IsFolder(folder)) throw FileError(folder, "is no folder; choose the one with the station files");
  Cruise cruise{WithBackslash(folder), name};
  std::vector<std::string> files = disk.FilesIn(folder);
  std::erase_if(files, [](const std::string& file) { return ProcNumOfBaseFile(file).empty(); });
  std::sort(files.begin(), files.end());
  for (std::size_t i = 0; i < files.size(); ++i) {
    if (progress && !progress(i, files.size())) break;
    ReadOne(disk, cruise, files[i]);
  }
  if (cruise.Name.empty()) cruise.Name = MostFrequentCruise(cruise.Stations);
  LeaveOutOthers(cruise);
  const auto order = [](const StationFile& station) {
    return std::tuple(ReadTimeOf(station).value_or(LocalTime::max()), Val(station.ProcNum), station.ProcNum);
  };
  std::stable_sort(cruise.Stations.begin(), cruise.Stations.end(),
                   [&](const StationFile& a, const StationFile& b) { return order(a) < order(b); });
  return cruise;
}

}  // namespace kelp
