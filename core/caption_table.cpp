// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/caption_table.hpp"

#include <algorithm>

#include "core/screens/acquire.hpp"
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
    {"&Start",
     Phase::Idle,
     Item::None,
     "",
     -1,
     {kTraceMagenta, kTraceRed, kTraceBlack},
     "Click to Start|Press Start to begin",
     "Click [Start] or press <Spacebar>.|Click [Start] |1: Load Blank|Saving Station |No station is open"},
    {"S&tandby", Phase::Idle, Item::None, "", -1, kLoad, "Click to Start",
     "Click [Start] or press <Spacebar>."},
    {"Load Blank", Phase::Load, Item::Blank, "BLANK", kStepBlank, kLoad,
     "Load Blank then click here when stable|Click to start reading the blank",
     "Load the blank and click [Start] or press <Spacebar>.|Load Blank then|Reload blank and click"},
    {"Read Blank", Phase::Read, Item::Blank, "BLANK", kStepBlank, kGreen, kWait,
     "Averaging blank readings..."},
    {"Reading Blank", Phase::Read, Item::Blank, "BLANK", kStepBlank, kGreen, kWait,
     "Averaging blank readings..."},
    {"Reading Begin Blank", Phase::Read, Item::Blank, "BLANK", kStepBlank, kGreen, kWait,
     "Averaging blank readings..."},
    {"Save &Blank", Phase::Save, Item::Blank, "BLANK", kStepBlank, kGreen, "Click to Save Blank",
     "Averaging blank readings..."},
    {"Load Low Standard", Phase::Load, Item::LowStandard, "STANDARD", kStepStandard, kLoad,
     "Load Standard then click here when stable|Click to start reading the low standard",
     "Load the Standard and click [Start] or press <Spacebar>.|Load Standard then"},
    {"Reading Low Standard", Phase::Read, Item::LowStandard, "STANDARD", kStepStandard, kGreen, kWait,
     "Reading and averaging low standard signal..."},
    {"Save Low Standard", Phase::Save, Item::LowStandard, "STANDARD", kStepStandard, kGreen,
     "Click to Save Low Standard", "Reading and averaging low standard signal..."},
    {"Load High Standard", Phase::Load, Item::HighStandard, "STANDARD", kStepStandard, kLoad,
     "Click to Start reading the high standard", "Flip the standard 180deg to High..."},
    {"Reading High Standard", Phase::Read, Item::HighStandard, "STANDARD", kStepStandard, kGreen, kWait,
     "Reading and averaging high standard signal..."},
    {"Save High Standard", Phase::Save, Item::HighStandard, "STANDARD", kStepStandard, kGreen,
     "Click to Save High Standard", "Reading and averaging high standard signal..."},
    // The space bar's prompt for the first copro names it by its number.
    {"Load Copro 1", Phase::Load, Item::Copro1, "COPROS", kStepCopros, kLoad,
     "Load Copro {1} then click here when stable", "Load Copro {1} and click [Start] or press <Spacebar>."},
    {"Load Copro {1}", Phase::Load, Item::Copro1, "COPROS", kStepCopros, kLoad,
     "Load Copro {1} then click here when stable|Click to start reading the copro standard",
     "Load Copro {1} and click [Start] or press <Spacebar>.|Load Copro {1} and click|Load Copro {1} "
     "then|Load Copro then"},
    {"Reading {1}", Phase::Read, Item::Copro1, "COPROS", kStepCopros, kGreen, kWait,
     "Reading and averaging {1}..."},
    {"Save {1}", Phase::Save, Item::Copro1, "COPROS", kStepCopros, kGreen, "Click to Save Reading of {1}",
     "Reading and averaging {1}..."},
    {"Load Copro {2}", Phase::Load, Item::Copro2, "COPROS", kStepCopros, kLoad, "Click to Start reading {2}",
     "Load Copro {2} and click [Start] or press <Spacebar>.|Insert 2nd Copro Standard."},
    {"Reading {2}", Phase::Read, Item::Copro2, "COPROS", kStepCopros, kGreen, kWait,
     "Reading and averaging {2}..."},
    {"Save {2}", Phase::Save, Item::Copro2, "COPROS", kStepCopros, kGreen, "Click to Save Reading of {2}",
     "Reading and averaging {2}..."},
    {"Load 1st Sample", Phase::Load, Item::Rb, "SAMPLE", kStepSamples, kLoad, kLoadSampleTip,
     "Load the first Station Sample and click [Start] or press <Spacebar>."},
    {"Load Sample", Phase::Load, Item::Rb, "SAMPLE", kStepSamples, kLoad, kLoadSampleTip, kLoadSample},
    {"Load Station Sample", Phase::Load, Item::Rb, "SAMPLE", kStepSamples, kLoad, kLoadSampleTip,
     kLoadSample},
    {"Load Next Sample", Phase::Load, Item::Rb, "SAMPLE", kStepSamples, kLoad, kLoadSampleTip, kLoadSample},
    {"Load Added Sample", Phase::Load, Item::Rb, "SAMPLE", kStepSamples, kLoad, kLoadSampleTip,
     "Load Sample, when stable <Click>"},
    {"Reading Station Sample", Phase::Read, Item::Rb, "SAMPLE", kStepSamples, kGreen, kWait, kReadSample},
    {"Reading Sample", Phase::Read, Item::Rb, "SAMPLE", kStepSamples, kGreen, kWait, kReadSample},
    {"Reading Rb", Phase::Read, Item::Rb, "SAMPLE", kStepSamples, kGreen, kWait, kReadSample},
    {"Read Rb", Phase::Read, Item::Rb, "SAMPLE", kStepSamples, kGreen, kWait, kReadSample},
    {"Save Rb", Phase::Save, Item::Rb, "SAMPLE", kStepSamples, kGreen, "Click to Save Rb", kReadSample},
    {"Acidify", Phase::Acid, Item::Ra, "SAMPLE", kStepSamples, kBlue, "Click to Start reading Ra", kAcid},
    {"Acidified", Phase::Acid, Item::Ra, "SAMPLE", kStepSamples, kBlue, "Click to Start reading Ra", kAcid},
    {"Reading Ra", Phase::Read, Item::Ra, "SAMPLE", kStepSamples, kBlue, kWait, kReadRa},
    {"Read Ra", Phase::Read, Item::Ra, "SAMPLE", kStepSamples, kBlue, kWait, kReadRa},
    {"Save Ra", Phase::Save, Item::Ra, "SAMPLE", kStepSamples, kBlue, "Click to Save Ra", kReadRa},
    // The automatic save leaves its words about the next sample on the screen behind the last one too.
    {"What's Next", Phase::Next, Item::None, "", -1, kNext, "Click to choose what's next",
     "All samples are read.|Load the next Station Sample and|Press F7 if the current reading is lower|Saving "
     "Station "},
    {"What's Next?", Phase::Next, Item::None, "", -1, kNext, "Click to choose what's next",
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
  const bool copros = run.StepName == "COPROS";
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

int SelectorOf(std::string_view step) {
  if (step == "BLANK") return kStepBlank;
  if (step == "STANDARD") return kStepStandard;
  if (step == "COPROS") return kStepCopros;
  return step == "SAMPLE" || step == "ADDED" ? kStepSamples : -1;
}

}  // namespace kelp
