// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/acquire_keys.hpp"

#include "app/acquire_load.hpp"
#include "app/focus.hpp"
#include "app/panel.hpp"
#include "record/record.hpp"
#include "workflow/keys.hpp"

namespace kelp {

namespace {

void ResetProgram(Kelp& kelp) {
  if (!AskRisky(kelp, "This will reset the program! Y/N?", "Reset Program?") || !MayLeave(kelp)) return;
  frmAcquire_Load(kelp);
}

// Grid and Autoread are used at every sample: each has a key of its own.
void GoToGrid(Kelp& kelp) {
  Grid& grid = kelp.frmAcquire.datalog;
  const PanelState panel = PanelOf(kelp);
  if (panel.Row > 0 && !IsAt(kelp.Focus, "frmAcquire", "datalog")) {
    grid.Row = panel.Row;
    grid.Col = panel.Col < 0 ? kColRb : panel.Col;
  }
  MoveFocus(kelp, {"frmAcquire", "datalog"});
}

void ToggleAutoread(Kelp& kelp) {
  bool& on = kelp.frmAcquire.Check1.Value;
  on = !on;
  SetStatus(kelp, on ? "Autoread is on: values are saved by themselves." : "Autoread is off.");
}

}  // namespace

void frmAcquire_KeyDown(Kelp& kelp, int number) {
  switch (number) {
    case 10: ResetProgram(kelp); break;
    case 11: GoToGrid(kelp); break;
    case 12: ToggleAutoread(kelp); break;
    default: FunctionKey(kelp, number); break;
  }
}

}  // namespace kelp
