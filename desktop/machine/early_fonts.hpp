// SPDX-License-Identifier: GPL-3.0-or-later
// The list of this machine's fonts is read beside the connection to the display: the first letter of a window
// waits for both, and each takes a quarter of the time until the first picture.
#pragma once

#include <thread>

namespace kelp {

class EarlyFonts {
 public:
  /// Begins; before the application is made. Without a thread to be had, Qt reads the list when it needs it.
  EarlyFonts();
  EarlyFonts(const EarlyFonts&) = delete;
  EarlyFonts& operator=(const EarlyFonts&) = delete;
  ~EarlyFonts();

 private:
  std::thread reads_;
};

}  // namespace kelp
