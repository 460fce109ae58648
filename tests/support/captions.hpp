// SPDX-License-Identifier: GPL-3.0-or-later
// Every caption that the Start button can carry, and what [Back], F5/F7 and a click on a mean box do
// with it. The copros are "3-1" and "2-5".
#pragma once

#include <cstdint>

#include "core/run_state.hpp"

namespace kelp {

/// Where a value goes: "" nowhere, "box N", "Rb" or "Ra" of the current sample, "Ra-1" of the one before;
/// "+" says that the sample is calculated.
struct CaptionRow {
  const char* caption;
  const char* key;      ///< F5 and F7 on the acquisition screen
  const char* chooser;  ///< F5 and F7 on the chooser
  const char* mean;     ///< a click on a mean box
  const char* back;     ///< the caption after [Back]; "" when it stays
  std::uint32_t trace;  ///< after [Back]
};

inline constexpr CaptionRow kCaptions[] = {
    {"&Start", "", "", "", "", 0},
    {"S&tandby", "", "", "", "", 0},
    {"Load Blank", "Ra-1 +", "Ra +", "Ra-1 +", "", 0},
    {"Read Blank", "", "", "", "", 0},
    {"Reading Blank", "", "", "", "", 0},
    {"Reading Begin Blank", "", "", "", "Load Blank", kTraceMagenta},
    {"Save &Blank", "", "", "", "", 0},
    {"Load Copro 1", "Ra-1 +", "Ra +", "box 0", "", 0},
    {"Load Copro 3-1", "box 0", "Ra +", "box 0", "Load Blank", kTraceMagenta},
    {"Reading 3-1", "", "", "", "Load Copro 3-1", kTraceMagenta},
    {"Save 3-1", "", "", "", "", 0},
    {"Load Copro 2-5", "box 6", "Ra +", "box 6", "Load Copro 3-1", kTraceMagenta},
    {"Reading 2-5", "", "", "", "Load Copro 2-5", kTraceMagenta},
    {"Save 2-5", "", "", "", "", 0},
    {"Load Low Standard", "box 0", "box 0", "box 0", "", 0},
    {"Reading Low Standard", "", "", "", "", 0},
    {"Save Low Standard", "", "", "", "", 0},
    {"Load High Standard", "box 2", "box 2", "box 2", "", 0},
    {"Reading High Standard", "", "", "", "", 0},
    {"Save High Standard", "", "", "", "", 0},
    {"Load 1st Sample", "box 8", "box 3", "box 3", "", 0},
    {"Load Sample", "Ra-1 +", "Ra +", "Ra-1 +", "", 0},
    {"Load Station Sample", "Ra-1 +", "Ra +", "Ra-1 +", "", 0},
    {"Load Next Sample", "Ra-1 +", "Ra +", "Ra-1 +", "", 0},
    {"Load Added Sample", "Ra-1 +", "Ra +", "Ra-1 +", "", 0},
    {"Reading Station Sample", "", "", "", "Load Station Sample", kTraceBlack},
    {"Reading Rb", "", "", "", "Load Station Sample", kTraceMagenta},
    {"Save Rb", "", "", "", "Reading Station Sample", kTraceGreen},
    {"Acidify", "Rb", "Rb", "Rb", "Reading Station Sample", kTraceGreen},
    {"Acidified", "", "", "", "Reading Station Sample", kTraceGreen},
    {"Reading Ra", "", "", "", "Acidify", kTraceBlue},
    {"Save Ra", "", "", "", "Reading Ra", kTraceBlue},
    {"What's Next", "Ra +", "Ra +", "", "", 0},
    {"What's Next?", "Ra +", "Ra +", "", "", 0},
};

}  // namespace kelp
