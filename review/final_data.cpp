// SPDX-License-Identifier: GPL-3.0-or-later
#include "review/final_data.hpp"

#include "calc/pigments.hpp"
#include "core/counter16.hpp"
#include "core/numbers.hpp"
#include "core/text.hpp"
#include "platform/error.hpp"
#include "review/calibration.hpp"
#include "review/station.hpp"

namespace kelp {

namespace {

// What a station's samples share, as numbers and as the texts of its columns.
struct Constants {
  double Blank = 0, F = 0, Tau = 0;
};

std::string FText(double value) { return Fixed(value, 6); }
std::string TauText(double value) { return Fixed(value, 4); }
// The mean of two blanks has one decimal more than they have; nothing that was calculated with is rounded.
std::string AverageText(double value) { return Fixed(value, 5); }
std::string BoxText(const Measured& value) { return value ? SavedText(*value) : ""; }

double Average(double before, const std::optional<double>& after) {
  return after ? (before + *after) / 2 : before;
}

// The average blank; the one of the table's header serves where the boxes hold none.
Measured AverageBlank(const Station& station, const StationFile& file) {
  const auto& [begin, end] = station.Blank;
  if (begin && end) return (*begin + *end) / 2;
  if (begin) return begin;
  if (end) return end;
  return Val(file.StoredBlank) > 0 ? Measured(Val(file.StoredBlank)) : Measured();
}

std::string WhyLeftOut(const StationFile& file, const Station& station) {
  if (IsLabStation(file.Station))
    return "holds tubes of the laboratory (\"" + file.Station + "\"), no samples";
  if (!AverageBlank(station, file)) return "has neither begin nor end blank";
  if (!station.F || *station.F <= 0) return "has no F (\"" + file.F + "\")";
  if (!station.Tau || *station.Tau <= 1) return "has no tau above 1 (\"" + file.Tau + "\")";
  return "";
}

struct Results {
  std::string Chla, Phaeo, AcidR, Flag;
};

Results Calculate(const StationSample& cells, const Constants& constants) {
  PigmentInput in{
      constants.F,     constants.Tau, Val(cells.Rb) - constants.Blank, Val(cells.Ra) - constants.Blank,
      Val(cells.FilV), Val(cells.ExV)};
  const bool negative = in.Rb < 0 || in.Ra < 0;
  const Pigments out = negative ? Pigments{-99, -99, -99} : CalcPigments(in);
  return {ResultText(out.Chla), ResultText(out.Phaeo), RatioText(out.AcidR),
          std::string(QcFlag(ToInt16(Val(cells.Depth)), out.AcidR))};
}

// A sample without a reading has no results; that it was skipped says its Rb of -99.
Results ResultsOf(FinalData& data, const std::string& file, const StationSample& cells,
                  const Constants& constants, std::size_t number) {
  const std::string name = "sample " + std::to_string(number) + ", bottle " + cells.Bottle;
  if (!MeasuredCell(cells.Rb) || !MeasuredCell(cells.Ra)) {
    data.Notes.push_back({file, name + " has no Rb or no Ra"});
    return {};
  }
  try {
    return Calculate(cells, constants);
  } catch (const RunTimeError& error) {
    data.Notes.push_back({file, name + ": " + error.what()});
    return {};
  }
}

void AddStation(FinalData& data, const StationFile& file, const Station& station,
                const PostCalibration& post) {
  const Constants constants{*AverageBlank(station, file), Average(*station.F, post.F),
                            Average(*station.Tau, post.Tau)};
  std::vector<std::string> place = Words(file.Station);
  place.resize(2);
  const auto hours = HoursToRun(file.FiltDate, file.FiltTime, file.ReadDate, file.ReadTime);
  const std::string name = file.Path.substr(file.Path.rfind('\\') + 1);
  for (std::size_t i = 0; i < file.Samples.size(); ++i) {
    const StationSample& cells = file.Samples[i];
    const Results results = ResultsOf(data, name, cells, constants, i + 1);
    data.Rows.push_back({file.ProcNum,
                         {file.Cruise,
                          place[0],
                          place[1],
                          file.ProcNum,
                          cells.Bottle,
                          cells.Tube,
                          cells.Depth,
                          cells.FilV,
                          cells.ExV,
                          file.FiltDate,
                          file.FiltTime,
                          file.ReadDate,
                          file.ReadTime,
                          file.Analyst,
                          file.Fluorometer,
                          BoxText(station.Blank.Begin),
                          BoxText(station.Blank.End),
                          AverageText(constants.Blank),
                          cells.Rb,
                          cells.Ra,
                          file.F,
                          file.Tau,
                          post.F ? FText(*post.F) : "",
                          post.Tau ? TauText(*post.Tau) : "",
                          FText(constants.F),
                          TauText(constants.Tau),
                          results.Chla,
                          results.Phaeo,
                          results.AcidR,
                          results.Flag,
                          hours ? HoursText(*hours) : "",
                          cells.FiltererRemark,
                          cells.ReaderRemark}});
  }
}

}  // namespace

void CheckPostCalibration(const PostCalibration& post) {
  if (post.F && !(*post.F > 0))
    throw RunTimeError(ErrorKind::InvalidCall, "F after the cruise is to be above 0, not " + FText(*post.F));
  if (post.Tau && !(*post.Tau > 1))
    throw RunTimeError(ErrorKind::InvalidCall, "tau after the cruise is to be above 1, not " +
                                                   TauText(*post.Tau) +
                                                   ": tau / (tau - 1) would divide by zero or turn the sign");
}

FinalData MakeFinalData(const Cruise& cruise, const PostCalibration& post) {
  CheckPostCalibration(post);
  FinalData data;
  data.Left = cruise.Left;
  for (const StationFile& file : cruise.Stations) {
    const Station station = MeasuredStation(file);
    const std::string why = WhyLeftOut(file, station);
    if (why.empty())
      AddStation(data, file, station, post);
    else
      data.Left.push_back({file.Path.substr(file.Path.rfind('\\') + 1), why});
  }
  return data;
}

}  // namespace kelp
