// SPDX-License-Identifier: GPL-3.0-or-later
#include "record/places.hpp"

#include <cstdlib>

#include "core/text.hpp"

namespace kelp {

namespace {

// The numbers between the parentheses of a place's text; -1 for none.
struct Indexes {
  int A = -1;
  int B = -1;
};

Indexes IndexesOf(const std::string& place) {
  const auto open = place.find('(');
  if (open == std::string::npos) return {};
  const auto comma = place.find(',', open);
  return {std::atoi(place.c_str() + open + 1),
          comma == std::string::npos ? -1 : std::atoi(place.c_str() + comma + 1)};
}

std::string_view ColumnWords(int column) {
  static constexpr std::string_view kColumns[] = {"vial",
                                                  "bottle",
                                                  "depth",
                                                  "Rb",
                                                  "Ra",
                                                  "chl-a",
                                                  "phaeo",
                                                  "acid ratio",
                                                  "flag",
                                                  "filtered volume",
                                                  "extraction volume",
                                                  "fluorometer volume",
                                                  "filterer's remark",
                                                  "reader's remark"};
  return kColumns[column];
}

std::string WithoutColon(std::string text) {
  text = Trim(text);
  while (text.ends_with(':') || text.ends_with('=') || text.ends_with(' ')) text.pop_back();
  return text;
}

}  // namespace

std::string WordsFor(const Kelp& kelp, const KeptPlace& place) {
  const FrmAcquire& form = kelp.frmAcquire;
  if (place.Name == "datalog") {
    const std::string& bottle = form.datalog.Text(place.A, kColBottle);
    return std::string(ColumnWords(place.B)) + " of sample " + std::to_string(place.A) +
           (bottle.empty() ? "" : ", bottle " + bottle);
  }
  if (place.Name == "txtBlank") return WithoutColon(form.lblBlank[place.A].Caption);
  if (place.Name == "txtStaInfo") return WithoutColon(form.lblStaInfo[place.A].Caption);
  if (place.Name == "Combo1") return "initials";
  if (place.Name == "SampCount") return "number of samples";
  return {};
}

std::string_view WordsFor(How how) {
  static constexpr std::string_view kWords[] = {"typed",  "Autoread", "by hand",  "F5",
                                                "F7",     "mean box", "skip",     "calculated",
                                                "remark", "loaded",   "restored", "undone"};
  return kWords[static_cast<std::size_t>(how)];
}

int SampleOf(const std::string& place) {
  const Indexes at = IndexesOf(place);
  if (StartsWith(place, "datalog(")) return at.A;
  return StartsWith(place, "SampTbl(") ? std::max(0, at.A - StationTable::kFirstSampleRow + 1) : 0;
}

bool IsMeasured(const std::string& place) {
  if (StartsWith(place, "txtBlank(")) return true;
  const int column = IndexesOf(place).B;
  return StartsWith(place, "datalog(") &&
         (column == kColRb || column == kColRa || column == kColFiltCom || column == kColReadCom);
}

bool IsCounted(const std::string& place) {
  const Indexes at = IndexesOf(place);
  if (StartsWith(place, "datalog(")) return GridWeight(at.B) == Weight::Counted;
  if (StartsWith(place, "txtStaInfo(")) return HeaderWeight(at.A) == Weight::Counted;
  return StartsWith(place, "txtBlank(");
}

}  // namespace kelp
