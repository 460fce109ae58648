// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquire/captions.hpp"

#include "core/captions.hpp"
#include "core/numbers.hpp"
#include "core/start_button.hpp"

namespace kelp {

namespace {

constexpr float kRaMargin = 0.1F;
constexpr const char* kRaIsHigh = "Ra greater than Rb... Wait...\nor press spacebar to accept Ra value.";
constexpr const char* kWaitTip = "Wait for minimum number of reads";

void WaitForFall(Kelp& kelp) {
  if (!kelp.frmAcquire.Check1.Value || kelp.run.RaAccepted) return;
  const auto shown = static_cast<float>(Val(kelp.frmAcquire.txtReading.Text));
  if (shown <= kelp.run.RbReading + kRaMargin) {
    if (Said(kelp) == kRaIsHigh) Say(kelp, "Press <spacebar> when reading is stable or wait for Autoread.");
    return;
  }
  kelp.run.ReadCount = 0;
  Say(kelp, kRaIsHigh);
}

// The button came to read an item that nobody has loaded: what is in the holder is something else.
std::string NotLoaded(const Kelp& kelp) {
  return "Sample " + std::to_string(int{kelp.run.SampNum}) +
         " was not loaded. Put it in, then press <spacebar> or click [" + kelp.frmAcquire.Command1.Caption +
         "].";
}

}  // namespace

bool WaitsForRa(const Kelp& kelp) { return ButtonRow(kelp).What == Item::Ra && Said(kelp) == kRaIsHigh; }

void UpdateSaveCaption(Kelp& kelp) {
  RunState& run = kelp.run;
  if (run.ReadCount < run.MinReads) return;
  const CaptionRow& row = ButtonRow(kelp);
  // Only what is being read turns into a save: a "Load..." caption waits for its click, whatever the count.
  if (row.Does != Phase::Read || !run.Loaded) return;
  const auto set = [&](const std::string& caption, const std::string& tip) {
    SetButton(kelp, {.Caption = caption, .Tip = tip, .SecondCopro = row.What == Item::Copro2});
  };
  switch (row.What) {
    case Item::HighStandard: set(captions::kSaveHighStandard, "Click to Save High Standard"); break;
    case Item::LowStandard: set(captions::kSaveLowStandard, "Click to Save Low Standard"); break;
    case Item::Copro1:
      set(WithNames(run, captions::kSaveFirstCopro), "Click to Save Reading of " + run.CoproLowStd);
      break;
    case Item::Copro2:
      set(WithNames(run, captions::kSaveSecondCopro), "Click to Save Reading of " + run.CoproHighStd);
      break;
    case Item::Rb:
      set(captions::kSaveRb, "Click to Save Rb");
      run.ReadFlag = true;
      break;
    case Item::Ra: set(captions::kSaveRa, "Click to Save Ra"); break;
    case Item::Blank: set(captions::kSaveBlank, "Click to Save Blank"); break;
    case Item::None: break;
  }
}

void UpdateInstruction(Kelp& kelp) {
  const CaptionRow& row = ButtonRow(kelp);
  if (row.Does != Phase::Read) return;
  if (!kelp.run.Loaded) {
    Say(kelp, NotLoaded(kelp));
    return;
  }
  const std::string& caption = kelp.frmAcquire.Command1.Caption;
  const auto say = [&](const std::string& what) { Say(kelp, "Reading and averaging " + what); };
  switch (row.What) {
    case Item::LowStandard: say("low standard signal..."); break;
    case Item::HighStandard: say("high standard signal..."); break;
    case Item::Copro1: say(kelp.run.CoproLowStd + "..."); break;
    case Item::Copro2: say(kelp.run.CoproHighStd + "..."); break;
    case Item::Rb:
      if (caption == captions::kReadingStationSample) say("initial sample signal...");
      if (caption == captions::kReadingSample) say("sample signal...Wait.");
      kelp.frmAcquire.Command1.ToolTipText = kWaitTip;
      break;
    case Item::Ra:
      kelp.frmAcquire.Command1.ToolTipText = kWaitTip;
      WaitForFall(kelp);
      break;
    default: break;
  }
}

}  // namespace kelp
