// SPDX-License-Identifier: GPL-3.0-or-later
// What the buttons and the step selectors read, wherever the program sets or compares it. What a caption of
// the Start button means stands in core/caption_table.
#pragma once

#include <string_view>

namespace kelp::captions {

inline constexpr const char* kStart = "&Start";
inline constexpr const char* kStandby = "S&tandby";
inline constexpr const char* kWhatsNext = "What's Next";
inline constexpr const char* kChoosing = "What's Next?";  ///< while the chooser is open

inline constexpr const char* kLoadBlank = "Load Blank";
inline constexpr const char* kReadBlank = "Read Blank";
inline constexpr const char* kReadingBlank = "Reading Blank";
inline constexpr const char* kReadingBeginBlank = "Reading Begin Blank";
inline constexpr const char* kSaveBlank = "Save &Blank";

inline constexpr const char* kLoadLowStandard = "Load Low Standard";
inline constexpr const char* kReadingLowStandard = "Reading Low Standard";
inline constexpr const char* kSaveLowStandard = "Save Low Standard";
inline constexpr const char* kLoadHighStandard = "Load High Standard";
inline constexpr const char* kReadingHighStandard = "Reading High Standard";
inline constexpr const char* kSaveHighStandard = "Save High Standard";

// "{1}" and "{2}" stand for the names of the copros (`WithNames`). The space bar's prompt for the first copro
// names it by its number.
inline constexpr const char* kLoadCopros = "Load Copro 1";
inline constexpr const char* kLoadFirstCopro = "Load Copro {1}";
inline constexpr const char* kReadingFirstCopro = "Reading {1}";
inline constexpr const char* kSaveFirstCopro = "Save {1}";
inline constexpr const char* kLoadSecondCopro = "Load Copro {2}";
inline constexpr const char* kReadingSecondCopro = "Reading {2}";
inline constexpr const char* kSaveSecondCopro = "Save {2}";

inline constexpr const char* kLoad1stSample = "Load 1st Sample";
inline constexpr const char* kLoadSample = "Load Sample";
inline constexpr const char* kLoadStationSample = "Load Station Sample";
inline constexpr const char* kLoadNextSample = "Load Next Sample";
inline constexpr const char* kLoadAddedSample = "Load Added Sample";
inline constexpr const char* kReadingStationSample = "Reading Station Sample";
inline constexpr const char* kReadingSample = "Reading Sample";
inline constexpr const char* kReadingRb = "Reading Rb";
inline constexpr const char* kReadRb = "Read Rb";
inline constexpr const char* kSaveRb = "Save Rb";
inline constexpr const char* kAcidify = "Acidify";
inline constexpr const char* kAcidified = "Acidified";
inline constexpr const char* kReadingRa = "Reading Ra";
inline constexpr const char* kReadRa = "Read Ra";
inline constexpr const char* kSaveRa = "Save Ra";

/// The Pause button.
inline constexpr const char* kPause = "&Pause";
inline constexpr const char* kResume = "&Resume";

/// The step selectors of blank and copros.
inline constexpr const char* kBeginBlank = "Begin Blank";
inline constexpr const char* kEndBlank = "End Blank";
inline constexpr const char* kCopros = "Copros";
inline constexpr const char* kEndCopros = "EndCopr";

/// True while a sample that has its Rb waits for the acid or for the Ra after it.
constexpr bool WaitsForAcid(std::string_view caption) { return caption == kAcidify || caption == kAcidified; }

}  // namespace kelp::captions
