// Guards the open station while another one is opened.
#pragma once

#include "core/kelp.hpp"

namespace kelp {

/// Does `work`. When that throws, the station that was open stays as it was: run state, grid, header
/// and blank boxes.
template <class Work>
void KeepingStation(Kelp& kelp, const Work& work) {
  FrmAcquire& form = kelp.frmAcquire;
  const RunState run = kelp.run;
  const Grid datalog = form.datalog;
  const auto header = form.txtStaInfo;
  const auto blanks = form.txtBlank;
  try {
    work();
  } catch (const RunTimeError&) {
    kelp.run = run;
    form.datalog = datalog;
    form.txtStaInfo = header;
    form.txtBlank = blanks;
    throw;
  }
}

}  // namespace kelp
