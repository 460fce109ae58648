// SPDX-License-Identifier: GPL-3.0-or-later
// The dialogs of a run: change step, run remarks, recalculation.
#pragma once

#include "core/kelp.hpp"

namespace kelp {

void frmChangeStep_Command1_Click(Kelp& kelp, int index);  ///< 0 resets to the selection, 1 closes
void dlgRunRem_OKButton_Click(Kelp& kelp);                 ///< stores the remark; the dialog stays
void frmRecalc_Command1_Click(Kelp& kelp, int index);  ///< 0 recalculates, 1 reloads the base file, 2 closes

/// Calculates every sample of the station under the operator's eyes, and opens the chooser. A row that can't
/// be calculated is left out; one error at the end names all such rows. Throws it, or FileError.
void CalcAllSamples(Kelp& kelp);

}  // namespace kelp
