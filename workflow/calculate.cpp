// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/calculate.hpp"

#include <algorithm>
#include <utility>

#include "calc/calc_samples.hpp"
#include "core/start_button.hpp"

namespace kelp {

void CalcAllSamples(Kelp& kelp) {
  RunState& run = kelp.run;
  MoveToSample(kelp, std::max(1, int{run.SampCount}));
  AllRows all;
  for (int row = 1; row <= run.SampCount; ++row) {
    ShowScreen(kelp, "frmAcquire");
    CalcRowGuarded(kelp, row, all);
  }
  SetStatus(kelp, "All samples are calculated. The run stands at sample " + std::to_string(int{run.SampNum}) +
                      " now.");
  ShowScreen(kelp, "frmWhatsNext");
  AppendAllRows(kelp, std::move(all));
}

}  // namespace kelp
