// SPDX-License-Identifier: GPL-3.0-or-later
// Option buttons: of a group, one is selected at a time.
#pragma once

#include "core/controls.hpp"

namespace kelp {

/// Selects a button of a group, as setting its Value does; no click is fired.
template <class Options>
void SelectOption(Options& options, int index) {
  for (int i = Options::kFirst; i <= Options::kLast; ++i) options[i].Value = i == index;
}

}  // namespace kelp
