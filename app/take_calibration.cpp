// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/take_calibration.hpp"

#include "core/config.hpp"
#include "core/numbers.hpp"
#include "core/text.hpp"
#include "platform/error.hpp"
#include "record/record.hpp"

namespace kelp {

namespace {

constexpr std::size_t kFieldWidth = 30;

std::string& Line(Kelp& kelp, CfgLine line) { return kelp.run.CfgLines[static_cast<std::size_t>(line)]; }

std::string Changes(const Kelp& kelp, const NewCalibration& calibration) {
  std::string text = "F " + CfgValue(kelp.run, kCfgMachineFactor) + " -> " + Fixed(calibration.F, 6) +
                     " (SD " + Fixed(calibration.FSd, 6) + ")";
  if (calibration.Tau)
    text += ", tau " + CfgValue(kelp.run, kCfgAcidRatio) + " -> " + Fixed(*calibration.Tau, 4) +
            (calibration.TauSd ? " (SD " + Fixed(*calibration.TauSd, 4) + ")" : "");
  return text;
}

void WriteLine(Kelp& kelp, CfgLine line, const std::string& value) {
  RewriteField(Line(kelp, line), Padded(value, kFieldWidth, "R", "S"));
}

// What a configuration line held, and holds.
RecordedValue Change(const Kelp& kelp, CfgLine line, const char* name, const std::string& before) {
  return {"CfgLines(" + std::to_string(int{line}) + ")", name, before, CfgValue(kelp.run, line)};
}

}  // namespace

bool TakeCalibration(Kelp& kelp, const NewCalibration& calibration) {
  const std::string changes = Changes(kelp, calibration);
  if (!AskYes(
          kelp,
          {.Text = "Put the calibration of station " + calibration.Station + " into kelp.cfg?\n" + changes +
                   "\nStations that are begun from now on are calculated with it; saved ones stay as they "
                   "are. Y/N",
           .Title = "Take over the calibration?",
           .Buttons = Buttons::YesNo,
           .Icon = Icon::Exclamation,
           .DefaultNo = true}))
    return false;
  const auto before = kelp.run.CfgLines;
  const std::string f = CfgValue(kelp.run, kCfgMachineFactor);
  const std::string tau = CfgValue(kelp.run, kCfgAcidRatio);
  try {
    WriteLine(kelp, kCfgMachineFactor, Fixed(calibration.F, 6));
    if (calibration.Tau) WriteLine(kelp, kCfgAcidRatio, Fixed(*calibration.Tau, 4));
    SaveConfig(kelp);
  } catch (const RunTimeError& error) {
    kelp.run.CfgLines = before;
    ReportError(kelp, error);
    return false;
  }
  SetStatus(kelp, "Calibration of station " + calibration.Station + ": " + changes);
  std::vector<RecordedValue> values = {Change(kelp, kCfgMachineFactor, "F", f)};
  if (calibration.Tau) values.push_back(Change(kelp, kCfgAcidRatio, "tau", tau));
  RecordConfigChange(kelp, "calibration of station " + calibration.Station, values);
  return true;
}

}  // namespace kelp
