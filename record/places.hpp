// SPDX-License-Identifier: GPL-3.0-or-later
// The places whose values the record keeps: cells, table cells, boxes, counters, step, captions and the
// flags that a run needs to go on. Each is named as operator scripts name it.
#pragma once

#include <charconv>
#include <string>
#include <string_view>
#include <vector>

#include "core/kelp.hpp"
#include "core/numbers.hpp"
#include "core/run_fields.hpp"

namespace kelp {

struct KeptPlace {
  std::string_view Name;
  kelp::Weight Weight = Weight::State;
  int A = -1;
  int B = -1;
};

inline std::string TextOf(const KeptPlace& place) {
  std::string text(place.Name);
  if (place.A < 0) return text;
  text += "(" + std::to_string(place.A);
  if (place.B >= 0) text += "," + std::to_string(place.B);
  return text + ")";
}

inline const std::string& ValueText(const std::string& value) { return value; }
inline std::string ValueText(const Counter16& value) { return std::to_string(int{value}); }
inline std::string ValueText(bool value) { return value ? "1" : "0"; }
inline std::string ValueText(std::uint32_t value) { return std::to_string(value); }
inline std::string ValueText(float value) {
  char buffer[64];
  return {buffer, std::to_chars(buffer, buffer + sizeof buffer, value).ptr};
}

inline void SetValue(std::string& to, const std::string& text) { to = text; }
inline void SetValue(Counter16& to, const std::string& text) { to = ToInt16(Val(text)); }
inline void SetValue(bool& to, const std::string& text) { to = text == "1"; }
inline void SetValue(std::uint32_t& to, const std::string& text) {
  to = static_cast<std::uint32_t>(Val(text));
}
inline void SetValue(float& to, const std::string& text) { to = static_cast<float>(Val(text)); }

inline Weight GridWeight(int column) {
  const bool result = column >= kColChla && column <= kColQc;
  return result ? Weight::Stored : Weight::Counted;
}

inline Weight HeaderWeight(int box) {
  if (box == kStaProcNum) return Weight::State;
  return box >= kStaAveBlank ? Weight::Stored : Weight::Counted;
}

/// Calls visit(place, field) for every place, always in the same order.
template <class Program, class Visit>
void VisitPlaces(Program& kelp, Visit&& visit) {
  auto& run = kelp.run;
  auto& form = kelp.frmAcquire;
  VisitRunState(run, [&](const RunField& field, auto& value) {
    if constexpr (requires { ValueText(value); })
      if (field.Kept) visit(KeptPlace{field.Name, *field.Kept}, value);
  });
  visit(KeptPlace{"Command1", Weight::Screen}, form.Command1.Caption);
  for (int i = 0; i < form.Option1.kCount; ++i) {
    visit(KeptPlace{"Option1.Caption", Weight::State, i}, form.Option1[i].Caption);
    visit(KeptPlace{"Option1.Value", Weight::Screen, i}, form.Option1[i].Value);
  }
  visit(KeptPlace{"Combo1", Weight::Stored}, form.Combo1.Text);
  for (int i = 0; i < kBoxAutoCriterion; ++i)
    visit(KeptPlace{"txtBlank", Weight::Counted, i}, form.txtBlank[i].Text);
  for (int i = 0; i < form.txtStaInfo.kCount; ++i)
    visit(KeptPlace{"txtStaInfo", HeaderWeight(i), i}, form.txtStaInfo[i].Text);
  for (int row = 1; row < form.datalog.Rows; ++row)
    for (int col = 0; col < form.datalog.Cols; ++col)
      visit(KeptPlace{"datalog", GridWeight(col), row, col}, form.datalog.Text(row, col));
  for (int row = 0; row < StationTable::kRows; ++row)
    for (int col = 0; col < StationTable::kCols; ++col)
      visit(KeptPlace{"SampTbl", Weight::Stored, row, col}, run.SampTbl(row, col));
}

/// A place in words, for people: "Ra of sample 3, bottle 09"; "" for one that only goes along.
std::string WordsFor(const Kelp& kelp, const KeptPlace& place);

/// How a value was stored, in words: "Autoread", "by hand", "F7", ...
std::string_view WordsFor(How how);

/// The row of grid or table that a place named in the record lies in: sample 1 and on; 0 for others.
int SampleOf(const std::string& place);

/// True for a place whose value is measured or remarked, not set up with the station: what counts where the
/// record begins anew in the middle of a station.
bool IsMeasured(const std::string& place);

/// True for a place that people would miss. Results and the table's copies go with those.
bool IsCounted(const std::string& place);

}  // namespace kelp
