#include "workflow/slots.hpp"

#include "acquire/captions.hpp"
#include "calc/calc_samples.hpp"
#include "core/text.hpp"

namespace kelp {

namespace {

ValueSlot Box(int index) { return {.Box = index}; }

// "Load ..." waits for the sample before: its Ra has just been saved.
ValueSlot PreviousRa(const Kelp& kelp, bool calculate) {
  return {.Row = kelp.run.SampNum - 1, .Col = kColRa, .Calculate = calculate};
}

}  // namespace

ValueSlot KeySlot(const Kelp& kelp) {
  const std::string& caption = kelp.frmAcquire.Command1.Caption;
  if (caption == "Acidify") return {.Row = kelp.run.SampNum, .Col = kColRb};
  if (caption == "Load Low Standard") return Box(0);
  if (caption == "Load High Standard") return Box(2);
  // The first copro's value goes to the blank's box; the analysts read it there.
  if (caption == "Load Copro " + kelp.run.CoproLowStd) return Box(0);
  if (caption == "Load Copro " + kelp.run.CoproHighStd) return Box(6);
  if (caption == "Load 1st Sample") return Box(8);
  if (StartsWith(caption, "What")) return {.Row = kelp.run.SampNum, .Col = kColRa, .Calculate = true};
  if (StartsWith(caption, "Load")) return PreviousRa(kelp, true);
  return {};
}

ValueSlot ChooserSlot(const Kelp& kelp) {
  const std::string& caption = kelp.frmAcquire.Command1.Caption;
  if (caption == "Acidify") return {.Row = kelp.run.SampNum, .Col = kColRb};
  if (caption == "Load Low Standard") return Box(0);
  if (caption == "Load High Standard") return Box(2);
  if (caption == "Load 1st Sample") return Box(3);
  if (StartsWith(caption, "Load") || StartsWith(caption, "What"))
    return {.Row = kelp.run.SampNum, .Col = kColRa, .Calculate = true};
  return {};
}

ValueSlot MeanSlot(const Kelp& kelp) {
  const std::string& caption = kelp.frmAcquire.Command1.Caption;
  if (caption == "Acidify") return {.Row = kelp.run.SampNum, .Col = kColRb};
  if (caption == "Load Low Standard") return Box(0);
  if (caption == "Load High Standard") return Box(2);
  if (caption == "Load 1st Sample") return Box(3);
  if (Contains(caption, "Load Copro")) return Box(HoldsName(caption, kelp.run.CoproHighStd) ? 6 : 0);
  if (StartsWith(caption, "Load")) return PreviousRa(kelp, false);
  return {};
}

void PutIntoSlot(Kelp& kelp, const ValueSlot& slot, const std::string& value) {
  if (slot.Box >= 0) kelp.frmAcquire.txtBlank[slot.Box].Text = value;
  // Before the first sample there is no Ra to put in: the header row is no sample.
  if (slot.Row >= 1) kelp.frmAcquire.datalog.Text(slot.Row, slot.Col) = value;
  if (slot.Row >= 1 && slot.Calculate) CalcCurrentSample(kelp);
}

}  // namespace kelp
