// SPDX-License-Identifier: GPL-3.0-or-later
#include "review/station.hpp"

#include <cmath>

#include "core/numbers.hpp"
#include "core/text.hpp"

namespace kelp {

namespace {

constexpr double kSkipped = -99;
// A damaged file must not stretch an axis over three hundred digits.
constexpr double kBeyondAnyReading = 1e9;

bool HoldsNumber(std::string_view text) {
  const std::string trimmed(Trim(text));
  const std::size_t sign = trimmed.find_first_not_of("+-");
  return sign < 2 && (Contains("0123456789", trimmed.substr(sign, 1)) ||
                      (trimmed[sign] == '.' && sign + 1 < trimmed.size() &&
                       Contains("0123456789", trimmed.substr(sign + 1, 1))));
}

Sample MeasuredSample(const StationSample& cells) {
  Sample sample{cells.Bottle, cells.Tube, cells.Flag};
  sample.Depth = MeasuredCell(cells.Depth);
  sample.Rb = MeasuredCell(cells.Rb);
  sample.Ra = MeasuredCell(cells.Ra);
  sample.Chla = MeasuredCell(cells.Chla);
  sample.Phaeo = MeasuredCell(cells.Phaeo);
  sample.AcidR = MeasuredCell(cells.AcidR);
  // What was calculated from a -99 is no result, whatever the cell says.
  sample.Skipped = (HoldsNumber(cells.Rb) && !sample.Rb) || (HoldsNumber(cells.Ra) && !sample.Ra);
  sample.ResultOfSkipped = sample.Skipped && sample.Chla;
  if (sample.Skipped) sample.Chla = sample.Phaeo = sample.AcidR = {};
  return sample;
}

MeasuredPair Both(const ValuePair& pair) { return {MeasuredBox(pair.Begin), MeasuredBox(pair.End)}; }

// A base file is created with a depth of 3 for every bottle.
bool AnyOtherDepth(const std::vector<Sample>& samples) {
  for (const Sample& sample : samples)
    if (sample.Depth && *sample.Depth != 3) return true;
  return samples.size() == 1 && samples[0].Depth.has_value();
}

}  // namespace

Measured MeasuredCell(const std::string& text) {
  if (!HoldsNumber(text)) return {};
  const double value = Val(text);
  return value <= kSkipped || std::abs(value) > kBeyondAnyReading ? Measured() : value;
}

Measured MeasuredBox(const std::string& text) { return Trim(text) == "0" ? Measured() : MeasuredCell(text); }

Station MeasuredStation(const StationFile& file) {
  Station station{file.ProcNum, file.Station, MeasuredCell(file.F), MeasuredCell(file.Tau)};
  station.Blank = Both(file.Blank);
  station.LowStandard = Both(file.LowStandard);
  station.HighStandard = Both(file.HighStandard);
  station.Copro1 = Both(file.Copro1);
  station.Copro2 = Both(file.Copro2);
  for (const StationSample& cells : file.Samples) station.Samples.push_back(MeasuredSample(cells));
  station.DepthsKnown = AnyOtherDepth(station.Samples);
  return station;
}

std::vector<Station> MeasuredStations(const std::vector<StationFile>& files) {
  std::vector<Station> stations;
  stations.reserve(files.size());
  for (const StationFile& file : files) stations.push_back(MeasuredStation(file));
  return stations;
}

std::string SampleName(const Station& station, std::size_t index) {
  const std::string& bottle = station.Samples[index].Bottle;
  return bottle.empty() ? "sample " + std::to_string(index + 1) : "bottle " + bottle;
}

}  // namespace kelp
