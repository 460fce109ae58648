// SPDX-License-Identifier: GPL-3.0-or-later
#include "review/checks.hpp"

#include <algorithm>
#include <cmath>
#include <map>

#include "core/numbers.hpp"
#include "review/calibration.hpp"
#include "review/checks_samples.hpp"

namespace kelp {

namespace {

constexpr double kLowestTau = 1.5;
constexpr double kHighestTau = 2.5;
// A program unit of F is ug of chlorophyll-a per mL of extract and reading; no instrument gives 1.
constexpr double kPerLitre = 1;
// A begin and end value of one station may differ by half of what is allowed at all.
constexpr double kShare = 0.5;

void CheckPair(const Station& station, const std::string& name, const MeasuredPair& pair, double allowed,
               std::vector<Finding>& findings) {
  if (!pair.Begin || !pair.End || allowed <= 0) return;
  const double change = *pair.End - *pair.Begin;
  if (std::abs(change) > kShare * allowed + 1e-9)
    findings.push_back({station.ProcNum, name,
                        name + " went from " + SavedText(*pair.Begin) + " at the begin to " +
                            SavedText(*pair.End) + " at the end (allowed: " + SavedText(kShare * allowed) +
                            ")."});
}

void CheckConstants(const Station& station, std::vector<Finding>& findings) {
  const auto add = [&](const std::string& where, const std::string& text) {
    findings.push_back({station.ProcNum, where, text});
  };
  if (!station.F || *station.F <= 0)
    add("F", "F is missing or not above 0: no result of this station is right.");
  else if (*station.F >= kPerLitre)
    add("F", "F = " + SavedText(*station.F) +
                 " looks like a per-litre value; the program's F is ug per mL of " +
                 "extract and reading. Divide it by 1000.");
  if (!station.Tau || *station.Tau < kLowestTau || *station.Tau > kHighestTau)
    add("tau", "tau = " + (station.Tau ? Fixed(*station.Tau, 3) : "(none)") +
                   " is outside 1.5 to 2.5, where chlorophyll-a can be.");
}

void CheckTimes(const StationFile& file, std::vector<Finding>& findings) {
  const auto hours = HoursToRun(file.FiltDate, file.FiltTime, file.ReadDate, file.ReadTime);
  if (hours && *hours < 0)
    findings.push_back({file.ProcNum, "times",
                        "Filtration (" + file.FiltDate + " " + file.FiltTime +
                            ") stands after the reading (" + file.ReadDate + " " + file.ReadTime + ")."});
}

// Stations are to be compared: all have one F and one tau, or somebody forgot a box.
void CheckOtherConstant(const std::vector<Station>& stations, const std::string& name,
                        Measured Station::*value, std::map<std::string, std::vector<Finding>>& byStation) {
  std::map<double, int> counts;
  for (const Station& station : stations)
    if (station.*value) ++counts[*(station.*value)];
  const auto most = std::max_element(counts.begin(), counts.end(),
                                     [](const auto& a, const auto& b) { return a.second < b.second; });
  if (counts.size() < 2) return;
  const auto text = [](double number) { return Fixed(number, number < 1 ? 5 : 3); };
  for (const Station& station : stations)
    if (station.*value && *(station.*value) != most->first)
      byStation[station.ProcNum].push_back({station.ProcNum, name,
                                            name + " = " + text(*(station.*value)) +
                                                "; most stations of this " + "cruise have " +
                                                text(most->first) + "."});
}

void CheckCharts(const std::vector<ControlChart>& charts, std::vector<Finding>& cruise,
                 std::map<std::string, std::vector<Finding>>& byStation) {
  for (const ControlChart& chart : charts) {
    if (!chart.Drift.empty())
      cruise.push_back({"", chart.Name, chart.Name + " drifts: it " + chart.Drift + "."});
    for (const ChartPoint& point : chart.Points)
      if (!point.Outside.empty())
        byStation[point.ProcNum].push_back(
            {point.ProcNum, (point.End ? "end " : "begin ") + chart.Name,
             (point.End ? "End value of " : "Begin value of ") + chart.Name + ": " + point.Outside + "."});
  }
}

}  // namespace

std::vector<Finding> CheckStation(const StationFile& file, const Station& station, const Limits& limits) {
  std::vector<Finding> findings;
  CheckConstants(station, findings);
  CheckTimes(file, findings);
  CheckPair(station, "Blank", station.Blank, limits.Blank, findings);
  CheckPair(station, "Copro " + limits.Copro1.Name, station.Copro1, limits.Copro1.Tolerance, findings);
  CheckPair(station, "Copro " + limits.Copro2.Name, station.Copro2, limits.Copro2.Tolerance, findings);
  // Tubes of the laboratory have no depth and belong to no profile.
  if (IsLabStation(file.Station)) return findings;
  CheckNumbers(station, findings);
  CheckReadings(station, findings);
  CheckJumps(station, findings);
  return findings;
}

std::vector<Finding> CheckCruise(const Cruise& cruise, const std::vector<Station>& stations,
                                 const std::vector<ControlChart>& charts, const Limits& limits) {
  std::vector<Finding> findings;
  std::map<std::string, std::vector<Finding>> byStation;
  CheckCharts(charts, findings, byStation);
  CheckOtherConstant(stations, "F", &Station::F, byStation);
  CheckOtherConstant(stations, "tau", &Station::Tau, byStation);
  for (std::size_t i = 0; i < stations.size(); ++i) {
    std::vector<Finding> own = std::move(byStation[stations[i].ProcNum]);
    byStation.erase(stations[i].ProcNum);
    const std::vector<Finding> more = CheckStation(cruise.Stations[i], stations[i], limits);
    findings.insert(findings.end(), own.begin(), own.end());
    findings.insert(findings.end(), more.begin(), more.end());
  }
  return findings;
}

}  // namespace kelp
