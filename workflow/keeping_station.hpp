// SPDX-License-Identifier: GPL-3.0-or-later
// Guards the open station while another one is opened.
#pragma once

#include "core/kelp.hpp"

namespace kelp {

/// Does `work`. When that throws, the station that was open stays as it was: run state and acquisition
/// screen, but for the status bar, which goes on.
template <class Work>
void KeepingStation(Kelp& kelp, const Work& work) {
  const RunState run = kelp.run;
  const FrmAcquire form = kelp.frmAcquire;
  try {
    work();
  } catch (const RunTimeError&) {
    kelp.run = run;
    const Window window = kelp.frmAcquire.Form;
    const TextBox status = kelp.frmAcquire.StatusBar1;
    kelp.frmAcquire = form;
    kelp.frmAcquire.Form = window;
    kelp.frmAcquire.StatusBar1 = status;
    throw;
  }
}

}  // namespace kelp
