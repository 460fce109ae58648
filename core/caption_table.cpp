// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/caption_table.hpp"

#include <algorithm>

#include "core/captions.hpp"
#include "core/screens/acquire.hpp"
#include "core/steps.hpp"
#include "core/text.hpp"

namespace kelp {

namespace {

using Traces = std::array<std::uint32_t, 3>;

constexpr Traces kLoad = {kTraceMagenta, kTraceRed, kTraceBlack};
constexpr Traces kGreen = {kTraceGreen, kTraceGreen, kTraceGreen};
constexpr Traces kBlue = {kTraceBlue, kTraceBlue, kTraceBlue};
constexpr Traces kNext = {kTraceRed, kTraceMagenta, kTraceBlue};

constexpr const char* kWait = "Wait for the min number of reads...|Wait for minimum number of reads";
constexpr const char* kLoadSampleTip =
    "Load Sample then click here when stable|Click to start reading the sample|Load Sample, when stable "
    "<Click>";
constexpr const char* kLoadSample =
    "Load the Sample and click [Start] or press <Spacebar>.|Load the first Station Sample and|Load the next "
    "Station Sample and|Load Sample then|Load Station Sample then hit|Load Sample, when stable|Press F7 if "
    "the "
    "current reading is lower|Sample ";
constexpr const char* kReadSample =
    "Reading and averaging initial sample signal...|Reading and averaging sample";
constexpr const char* kReadRa =
    "Press <spacebar> when reading is stable or wait for Autoread.|When SD <=|Ra greater than Rb...|Ra is > "
    "than "
    "Rb.|Ra above Rb is accepted";
constexpr const char* kAcid =
    "ACIDIFY - ONE squirt of 10% HCL using Repipettor|ACIDIFY|Press F7 if the current reading is "
    "higher|Sample ";

constexpr CaptionRow kRows[] = {
    {captions::kStart,
     Phase::Idle,
     Item::None,
     "",
     -1,
     {kTraceMagenta, kTraceRed, kTraceBlack},
     "Click to Start|Press Start to begin",
     "Click [Start] or press <Spacebar>.|Click [Start] |1: Load Blank|Saving Station |No station is open"},
    {captions::kStandby, Phase::Idle, Item::None, "", -1, kLoad, "Click to Start",
     "Click [Start] or press <Spacebar>."},
    {captions::kLoadBlank, Phase::Load, Item::Blank, steps::kBlank, kStepBlank, kLoad,
     "Load Blank then click here when stable|Click to start reading the blank",
     "Load the blank and click [Start] or press <Spacebar>.|Load Blank then|Reload blank and click"},
    {captions::kReadBlank, Phase::Read, Item::Blank, steps::kBlank, kStepBlank, kGreen, kWait,
     "Averaging blank readings..."},
    {captions::kReadingBlank, Phase::Read, Item::Blank, steps::kBlank, kStepBlank, kGreen, kWait,
     "Averaging blank readings..."},
    {captions::kReadingBeginBlank, Phase::Read, Item::Blank, steps::kBlank, kStepBlank, kGreen, kWait,
     "Averaging blank readings..."},
    {captions::kSaveBlank, Phase::Save, Item::Blank, steps::kBlank, kStepBlank, kGreen, "Click to Save Blank",
     "Averaging blank readings..."},
    {captions::kLoadLowStandard, Phase::Load, Item::LowStandard, steps::kStandard, kStepStandard, kLoad,
     "Load Standard then click here when stable|Click to start reading the low standard",
     "Load the Standard and click [Start] or press <Spacebar>.|Load Standard then"},
    {captions::kReadingLowStandard, Phase::Read, Item::LowStandard, steps::kStandard, kStepStandard, kGreen,
     kWait, "Reading and averaging low standard signal..."},
    {captions::kSaveLowStandard, Phase::Save, Item::LowStandard, steps::kStandard, kStepStandard, kGreen,
     "Click to Save Low Standard", "Reading and averaging low standard signal..."},
    {captions::kLoadHighStandard, Phase::Load, Item::HighStandard, steps::kStandard, kStepStandard, kLoad,
     "Click to Start reading the high standard", "Flip the standard 180deg to High..."},
    {captions::kReadingHighStandard, Phase::Read, Item::HighStandard, steps::kStandard, kStepStandard, kGreen,
     kWait, "Reading and averaging high standard signal..."},
    {captions::kSaveHighStandard, Phase::Save, Item::HighStandard, steps::kStandard, kStepStandard, kGreen,
     "Click to Save High Standard", "Reading and averaging high standard signal..."},
    {captions::kLoadCopros, Phase::Load, Item::Copro1, steps::kCopros, kStepCopros, kLoad,
     "Load Copro {1} then click here when stable", "Load Copro {1} and click [Start] or press <Spacebar>."},
    {captions::kLoadFirstCopro, Phase::Load, Item::Copro1, steps::kCopros, kStepCopros, kLoad,
     "Load Copro {1} then click here when stable|Click to start reading the copro standard",
     "Load Copro {1} and click [Start] or press <Spacebar>.|Load Copro {1} and click|Load Copro {1} "
     "then|Load Copro then"},
    {captions::kReadingFirstCopro, Phase::Read, Item::Copro1, steps::kCopros, kStepCopros, kGreen, kWait,
     "Reading and averaging {1}..."},
    {captions::kSaveFirstCopro, Phase::Save, Item::Copro1, steps::kCopros, kStepCopros, kGreen,
     "Click to Save Reading of {1}", "Reading and averaging {1}..."},
    {captions::kLoadSecondCopro, Phase::Load, Item::Copro2, steps::kCopros, kStepCopros, kLoad,
     "Click to Start reading {2}",
     "Load Copro {2} and click [Start] or press <Spacebar>.|Insert 2nd Copro Standard."},
    {captions::kReadingSecondCopro, Phase::Read, Item::Copro2, steps::kCopros, kStepCopros, kGreen, kWait,
     "Reading and averaging {2}..."},
    {captions::kSaveSecondCopro, Phase::Save, Item::Copro2, steps::kCopros, kStepCopros, kGreen,
     "Click to Save Reading of {2}", "Reading and averaging {2}..."},
    {captions::kLoad1stSample, Phase::Load, Item::Rb, steps::kSample, kStepSamples, kLoad, kLoadSampleTip,
     "Load the first Station Sample and click [Start] or press <Spacebar>."},
    {captions::kLoadSample, Phase::Load, Item::Rb, steps::kSample, kStepSamples, kLoad, kLoadSampleTip,
     kLoadSample},
    {captions::kLoadStationSample, Phase::Load, Item::Rb, steps::kSample, kStepSamples, kLoad, kLoadSampleTip,
     kLoadSample},
    {captions::kLoadNextSample, Phase::Load, Item::Rb, steps::kSample, kStepSamples, kLoad, kLoadSampleTip,
     kLoadSample},
    {captions::kLoadAddedSample, Phase::Load, Item::Rb, steps::kSample, kStepSamples, kLoad, kLoadSampleTip,
     "Load Sample, when stable <Click>"},
    {captions::kReadingStationSample, Phase::Read, Item::Rb, steps::kSample, kStepSamples, kGreen, kWait,
     kReadSample},
    {captions::kReadingSample, Phase::Read, Item::Rb, steps::kSample, kStepSamples, kGreen, kWait,
     kReadSample},
    {captions::kReadingRb, Phase::Read, Item::Rb, steps::kSample, kStepSamples, kGreen, kWait, kReadSample},
    {captions::kReadRb, Phase::Read, Item::Rb, steps::kSample, kStepSamples, kGreen, kWait, kReadSample},
    {captions::kSaveRb, Phase::Save, Item::Rb, steps::kSample, kStepSamples, kGreen, "Click to Save Rb",
     kReadSample},
    {captions::kAcidify, Phase::Acid, Item::Ra, steps::kSample, kStepSamples, kBlue,
     "Click to Start reading Ra", kAcid},
    {captions::kAcidified, Phase::Acid, Item::Ra, steps::kSample, kStepSamples, kBlue,
     "Click to Start reading Ra", kAcid},
    {captions::kReadingRa, Phase::Read, Item::Ra, steps::kSample, kStepSamples, kBlue, kWait, kReadRa},
    {captions::kReadRa, Phase::Read, Item::Ra, steps::kSample, kStepSamples, kBlue, kWait, kReadRa},
    {captions::kSaveRa, Phase::Save, Item::Ra, steps::kSample, kStepSamples, kBlue, "Click to Save Ra",
     kReadRa},
    // The automatic save leaves its words about the next sample on the screen behind the last one too.
    {captions::kWhatsNext, Phase::Next, Item::None, "", -1, kNext, "Click to choose what's next",
     "All samples are read.|Load the next Station Sample and|Press F7 if the current reading is lower|Saving "
     "Station "},
    {captions::kChoosing, Phase::Next, Item::None, "", -1, kNext, "Click to choose what's next",
     "Choose what's next.|Saving Station "},
};

constexpr CaptionRow kUnknown = {"", Phase::Idle, Item::None, "", -1, kLoad, "", ""};

// Said whatever the button reads: the prompts of a header box that was left, F3's words, a click too early.
constexpr const char* kSaidAnywhere =
    "Press <spacebar> to restart...|Manual overide;|Wait! Read minimum number|Load Blank then press "
    "<spacebar> "
    "twice|Load Standard then press <spacebar> twice|Load Copro then press <spacebar> twice|Load Sample then "
    "press <spacebar> twice|Load Sample then press <spacebar>|Saving Station ";

bool HasCaption(const RunState& run, const CaptionRow& row, std::string_view caption) {
  const std::string_view text = row.Caption;
  return text.ends_with('}') ? WithNames(run, text) == caption : text == caption;
}

bool IsCopro(const CaptionRow& row) { return row.What == Item::Copro1 || row.What == Item::Copro2; }

}  // namespace

std::span<const CaptionRow> CaptionTable() { return kRows; }

std::string WithNames(const RunState& run, std::string_view text) {
  return Replaced(Replaced(std::string(text), "{1}", run.CoproLowStd), "{2}", run.CoproHighStd);
}

const CaptionRow& CaptionOf(const RunState& run, std::string_view caption) {
  // A copro may have the name of something else, such as "Rb": in its own step its name comes first.
  const bool copros = run.StepName == steps::kCopros;
  const CaptionRow* found = nullptr;
  for (const CaptionRow& row : kRows) {
    if (!HasCaption(run, row, caption)) continue;
    const bool better = found == nullptr || (copros && IsCopro(row) && !IsCopro(*found)) ||
                        // Copros of one name are told apart by the one that is under way.
                        (IsCopro(*found) && row.What == Item::Copro2 && run.SecondCopro);
    if (better) found = &row;
  }
  return found != nullptr ? *found : kUnknown;
}

std::vector<std::string> Alternatives(const RunState& run, std::string_view texts) {
  std::vector<std::string> alternatives;
  for (;;) {
    const auto end = texts.find('|');
    alternatives.push_back(WithNames(run, texts.substr(0, end)));
    if (end == std::string_view::npos) return alternatives;
    texts.remove_prefix(end + 1);
  }
}

bool GoesWith(const RunState& run, std::string_view alternatives, std::string_view text) {
  const auto begins = [&](const std::string& start) { return StartsWith(text, start); };
  for (const std::string_view list : {alternatives, std::string_view(kSaidAnywhere)}) {
    const auto texts = Alternatives(run, list);
    if (std::any_of(texts.begin(), texts.end(), begins)) return true;
  }
  return false;
}

}  // namespace kelp
