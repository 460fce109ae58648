// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/machine/early_fonts.hpp"

#ifdef KELP_FONTCONFIG
#include <fontconfig/fontconfig.h>

#include <system_error>
#endif

namespace kelp {

EarlyFonts::EarlyFonts() {
#ifdef KELP_FONTCONFIG
  try {
    reads_ = std::thread(FcInit);
  } catch (const std::system_error&) {
    // Qt does it itself, only later.
  }
#endif
}

EarlyFonts::~EarlyFonts() {
  if (reads_.joinable()) reads_.join();
}

}  // namespace kelp
