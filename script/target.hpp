// SPDX-License-Identifier: GPL-3.0-or-later
// The things that a script names: controls, the run state, the status bar, the strip chart.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/find_control.hpp"
#include "core/kelp.hpp"

namespace kelp {

/// "frmAcquire.datalog(2,3).BackColor", "frmAcquire.Visible", "run.SampTbl(5,7)", "status", "chart(100)".
struct Target {
  enum class Kind { Control, Screen, Run, Status, Chart };
  Kind Is = Kind::Control;
  std::string Name;  ///< as the script wrote it
  FocusPlace Place = {};
  RunIndex Index = {};  ///< row and column of a grid's cell; the indexes of a run-state array
  std::string Member =
      {};  ///< "", "ToolTipText", "Enabled", "Visible", "Value", "BackColor", "Caption", "Text"
  [[nodiscard]] bool IsCell() const { return Is == Kind::Control && Index.Second.has_value(); }
};

/// Finds what a script names. Throws ScriptFault when there is no such control, screen, index or name.
Target FindTarget(Kelp& kelp, std::string_view name);

/// FindTarget for what an operator can click, type into or put the focus on.
Target FindControlTarget(Kelp& kelp, std::string_view name);

/// The value as text: booleans as "0" and "1" (of the run state as "True" and "False"), numbers and
/// colours as plain decimals.
std::string TargetValue(Kelp& kelp, const Target& target);

/// True when the value is what the script expects. A boolean may be written 0, 1, -1, True or False, a
/// colour with "&H" too; any other value must be the same text, line breaks written `\n`.
bool TargetIs(Kelp& kelp, const Target& target, std::string_view expected);

}  // namespace kelp
