// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/slots.hpp"

#include "calc/calc_samples.hpp"
#include "core/captions.hpp"
#include "core/places.hpp"
#include "core/start_button.hpp"
#include "core/text.hpp"

namespace kelp {

namespace {

ValueSlot Box(int index) { return {.Box = index}; }

// "Load ..." waits for the sample before: its Ra has just been saved.
ValueSlot PreviousRa(const Kelp& kelp) {
  return {.Row = kelp.run.SampNum - 1, .Col = kColRa, .Calculate = true};
}

}  // namespace

ValueSlot KeySlot(const Kelp& kelp) {
  const std::string& caption = kelp.frmAcquire.Command1.Caption;
  const bool second = ButtonRow(kelp).What == Item::Copro2;
  if (caption == captions::kAcidify) return {.Row = kelp.run.SampNum, .Col = kColRb};
  if (caption == captions::kLoadLowStandard) return Box(0);
  if (caption == captions::kLoadHighStandard) return Box(2);
  // The first copro's value goes to the blank's box; the analysts read it there.
  if (caption == WithNames(kelp.run, captions::kLoadFirstCopro) && !second) return Box(0);
  if (caption == WithNames(kelp.run, captions::kLoadSecondCopro)) return Box(6);
  if (caption == captions::kLoad1stSample) return Box(8);
  if (StartsWith(caption, "What")) return {.Row = kelp.run.SampNum, .Col = kColRa, .Calculate = true};
  if (StartsWith(caption, "Load")) return PreviousRa(kelp);
  return {};
}

ValueSlot ChooserSlot(const Kelp& kelp) {
  const std::string& caption = kelp.frmAcquire.Command1.Caption;
  if (caption == captions::kAcidify) return {.Row = kelp.run.SampNum, .Col = kColRb};
  if (caption == captions::kLoadLowStandard) return Box(0);
  if (caption == captions::kLoadHighStandard) return Box(2);
  if (caption == captions::kLoad1stSample) return Box(3);
  if (StartsWith(caption, "Load") || StartsWith(caption, "What"))
    return {.Row = kelp.run.SampNum, .Col = kColRa, .Calculate = true};
  return {};
}

ValueSlot MeanSlot(const Kelp& kelp) {
  const std::string& caption = kelp.frmAcquire.Command1.Caption;
  const bool second = ButtonRow(kelp).What == Item::Copro2;
  if (caption == captions::kAcidify) return {.Row = kelp.run.SampNum, .Col = kColRb};
  if (caption == captions::kLoadLowStandard) return Box(0);
  if (caption == captions::kLoadHighStandard) return Box(2);
  if (caption == captions::kLoad1stSample) return Box(3);
  if (Contains(caption, "Load Copro")) return Box(second ? 6 : 0);
  if (StartsWith(caption, "Load")) return PreviousRa(kelp);
  return {};
}

void PutIntoSlot(Kelp& kelp, const ValueSlot& slot, const std::string& value, How way) {
  const std::string& caption = kelp.frmAcquire.Command1.Caption;
  if (slot.Box < 0 && slot.Col < 0) {
    SetStatus(kelp, "The button reads \"" + AsRead(caption) + "\": it waits for no value.");
    return;
  }
  if (slot.Box < 0 && (slot.Row < 1 || slot.Row > kelp.run.SampCount)) {
    SetStatus(kelp, slot.Row < 1 ? "There is no sample before the first one to put a value into."
                                 : "This station has no sample " + std::to_string(slot.Row) + ".");
    return;
  }
  if (Trim(value).empty() || Trim(value).find_first_not_of("0123456789.+-") != std::string::npos) {
    SetStatus(kelp, "\"" + value + "\" is no value: nothing was put anywhere.");
    return;
  }
  PutValue(kelp, {.Box = slot.Box, .Row = slot.Row, .Col = slot.Col}, value,
           {.Way = way, .Reads = kelp.run.ReadCount, .Sd = kelp.loop.Sd});
  if (slot.Box < 0 && slot.Calculate) CalcRow(kelp, slot.Row);
}

}  // namespace kelp
