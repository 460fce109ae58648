// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/places.hpp"

#include "core/numbers.hpp"
#include "core/text.hpp"

namespace kelp {

namespace {

constexpr const char* kWays[] = {"typed",   "Autoread",   "by hand", "F5",     "F7",       "mean box",
                                 "skipped", "calculated", "remark",  "loaded", "restored", "taken back"};

std::string& ValueIn(Kelp& kelp, const Place& place) {
  FrmAcquire& form = kelp.frmAcquire;
  if (place.Box >= 0) return form.txtBlank[place.Box].Text;
  if (place.Header >= 0) return form.txtStaInfo[place.Header].Text;
  return form.datalog.Text(place.Row, place.Col);
}

// A box of "0" was never read and one of -99 was skipped: neither is a blank to calculate with.
std::string BlankIn(const std::string& shown) {
  return Trim(shown).empty() || shown == "0" || Val(shown) <= -99 ? "" : shown;
}

void TakeBox(Kelp& kelp, int box, const std::string& value) {
  RunState& run = kelp.run;
  if (box == kBoxLowStandard) run.LowStdText = value;
  if (box == kBoxHighStandard) run.HighStdText = value;
  if (box > kBoxEndBlank) return;
  std::string& blank = box == kBoxBeginBlank ? run.BeginBlankText : run.EndBlankText;
  blank = BlankIn(value);
  run.SampTbl(2, box) = blank.empty() ? "0.0" : blank;
  if (blank.empty()) kelp.frmAcquire.txtStaInfo[kStaAveBlank].Text.clear();
  ShowAverageBlank(kelp);
}

void TakeCell(Kelp& kelp, const Place& place, const std::string& value, bool inTable) {
  RunState& run = kelp.run;
  if (place.Col != kColRb && place.Col != kColRa) return;
  if (inTable)
    run.SampTbl(place.Row + StationTable::kFirstSampleRow - 1, place.Col == kColRb ? kTblRb : kTblRa) = value;
  if (place.Col == kColRb && place.Row == run.SampNum) run.RbReading = static_cast<float>(Val(value));
}

// A value is typed key by key: what it replaces is what stood there before the first one.
std::string BeforeTyping(Kelp& kelp, const Place& place, const std::string& now, How way) {
  const std::string name = way == How::Typed ? PlaceName(kelp, place) : "";
  if (name.empty() || name != kelp.TypedAt || kelp.TypedStores != kelp.run.Stores) kelp.TypedBefore = now;
  kelp.TypedAt = name;
  return kelp.TypedBefore;
}

void Put(Kelp& kelp, const Place& place, const std::string& value, const StoreNote& note, bool inTable) {
  std::string& now = ValueIn(kelp, place);
  const std::string before = BeforeTyping(kelp, place, now, note.Way);
  const bool unread = before.empty() || (place.Box >= 0 && before == "0");
  now = value;
  if (place.Box >= 0) TakeBox(kelp, place.Box, value);
  if (place.Row >= 1) TakeCell(kelp, place, value, inTable);
  kelp.TypedStores = ++kelp.run.Stores;
  kelp.Note = note;
  SetStatus(kelp, PlaceName(kelp, place) + ": " + (unread ? "" : before + " -> ") + value + " (" +
                      kWays[static_cast<int>(note.Way)] + "). Ctrl+Z takes it back.");
}

}  // namespace

std::string BottleOf(const Kelp& kelp, int sample) {
  const std::string& bottle = kelp.frmAcquire.datalog.Text(sample, kColBottle);
  return bottle.empty() ? "?" : bottle;
}

std::string PlaceName(const Kelp& kelp, const Place& place) {
  const FrmAcquire& form = kelp.frmAcquire;
  if (place.Box >= 0) return std::string(Trim(form.lblBlank[place.Box].Caption));
  if (place.Header >= 0) {
    std::string_view label = Trim(form.lblStaInfo[place.Header].Caption);
    while (EndsWith(label, ":") || EndsWith(label, "=")) label = Trim(label.substr(0, label.size() - 1));
    return std::string(label);
  }
  return form.datalog.Text(0, place.Col) + " of sample " + std::to_string(place.Row) + ", bottle " +
         BottleOf(kelp, place.Row);
}

const std::string& ValueAt(const Kelp& kelp, const Place& place) {
  return ValueIn(const_cast<Kelp&>(kelp), place);  // NOLINT: it is only read
}

bool HoldsReading(const Kelp& kelp, const Place& place) {
  const std::string& value = ValueAt(kelp, place);
  return !Trim(value).empty() && Val(value) > -99;
}

void PutValue(Kelp& kelp, const Place& place, const std::string& value, const StoreNote& note) {
  Put(kelp, place, value, note, true);
}

void PutOutsideTable(Kelp& kelp, const Place& place, const std::string& value, const StoreNote& note) {
  Put(kelp, place, value, note, false);
}

void ShowAverageBlank(Kelp& kelp) {
  const RunState& run = kelp.run;
  if (run.BeginBlankText.empty() || run.EndBlankText.empty()) return;
  kelp.frmAcquire.txtStaInfo[kStaAveBlank].Text =
      SavedText((Val(run.BeginBlankText) + Val(run.EndBlankText)) / 2);
}

StoreNote NoteOfReads(const Kelp& kelp, How way) {
  return {.Way = way, .Reads = kelp.run.ReadCount, .Sd = kelp.loop.Sd};
}

}  // namespace kelp
