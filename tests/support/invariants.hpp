// SPDX-License-Identifier: GPL-3.0-or-later
// What holds after every event, whatever the operator did: the random operator looks after each.
#pragma once

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "core/places.hpp"
#include "core/start_button.hpp"
#include "core/steps.hpp"
#include "core/text.hpp"

namespace kelp {

/// Button, step, selector, trace colour, tooltip and instruction go together. Returns what does not, or "".
inline std::string Disagreement(const Kelp& kelp) {
  const RunState& run = kelp.run;
  const FrmAcquire& form = kelp.frmAcquire;
  const CaptionRow& row = ButtonRow(kelp);
  const std::string at = "[" + form.Command1.Caption + "] in " + run.StepName + ": ";
  if (*row.Caption == '\0') return at + "no such caption";
  const bool added = run.StepName == "ADDED" && row.Selector == kStepSamples;
  const bool none = SelectorOf(run.StepName) < 0;  // "STANDBY", "RELOAD", "RECALC"
  if (*row.Step != '\0' && !added && !none && run.StepName != row.Step) return at + "another step";
  if (!none && !form.Option1[SelectorOf(run.StepName)].Value) return at + "the selector stands elsewhere";
  if (std::find(row.Traces.begin(), row.Traces.end(), run.TraceColor) == row.Traces.end())
    return at + "trace " + std::to_string(run.TraceColor);
  if (!GoesWith(run, row.Tips, form.Command1.ToolTipText)) return at + "tooltip " + form.Command1.ToolTipText;
  if (!GoesWith(run, row.Texts, Said(kelp)) && !(row.Does == Phase::Read && !run.Loaded))
    return at + "instruction " + Said(kelp);
  if (row.Does == Phase::Load && (run.ReadCount != 0 || run.Loaded)) return at + "counts before it is loaded";
  return "";
}

/// The Rb and Ra of the first rows and the boxes, as they stand.
struct Values {
  std::array<std::string, 80> cells = {};
  std::array<std::string, 10> boxes = {};

  static constexpr int kRows = 40;
  std::string& cell(int row, int col) {
    return cells[static_cast<std::size_t>(2 * (row - 1) + col - kColRb)];
  }

  static Values Of(const Kelp& kelp) {
    Values values;
    for (int row = 1; row <= kRows; ++row)
      for (const int col : {kColRb, kColRa}) values.cell(row, col) = kelp.frmAcquire.datalog.Text(row, col);
    for (int box = 0; box < 10; ++box)
      values.boxes[static_cast<std::size_t>(box)] = kelp.frmAcquire.txtBlank[box].Text;
    return values;
  }
  bool operator==(const Values&) const = default;
};

}  // namespace kelp
