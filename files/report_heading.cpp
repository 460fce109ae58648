// SPDX-License-Identifier: GPL-3.0-or-later
// Reads the heading of a saved report, and puts it back into the header boxes.
#include <algorithm>
#include <optional>

#include "core/numbers.hpp"
#include "core/text.hpp"
#include "files/report.hpp"
#include "files/station_text.hpp"
#include "files/station_values.hpp"

namespace kelp {

namespace {

// What a line of two halves holds behind the key of the left half and that of the right half.
struct HeadingLine {
  std::optional<std::string> Left = {};
  std::optional<std::string> Right = {};
};

HeadingLine SplitHeading(std::string_view line, std::string_view leftKey, std::string_view rightKey) {
  HeadingLine values;
  const auto right = line.rfind(rightKey);
  if (right != std::string_view::npos) {
    values.Right = Trim(line.substr(right + rightKey.size()));
    line = line.substr(0, right);
  }
  if (line.starts_with(leftKey)) values.Left = line.substr(leftKey.size());
  return values;
}

std::optional<std::string> Trimmed(const std::optional<std::string>& text) {
  return text ? std::optional(std::string(Trim(*text))) : std::nullopt;
}

std::optional<ValuePair> SplitAt(const std::optional<std::string>& text, std::string_view mark) {
  const auto at = text ? text->find(mark) : std::string::npos;
  if (at == std::string::npos) return {};
  return ValuePair{text->substr(0, at), text->substr(at + mark.size())};
}

void ReadFiltration(ReportHeading& heading, const std::optional<std::string>& text) {
  if (!text) return;
  // A blank in front: only the time was filled in.
  const DateAndTime filtered =
      text->starts_with(' ') ? DateAndTime{"", std::string(Trim(*text))} : SplitDateTime(*text);
  heading.FiltDate = filtered.Date;
  heading.FiltTime = filtered.Time;
}

std::optional<ValuePair> ReadCopro(std::string_view line, std::string& name) {
  const auto key = line.rfind(": ");
  if (key == std::string_view::npos) return {};
  const std::string_view copro = "Copro ";
  const auto start = line.find(copro);
  if (start != std::string_view::npos && start < key)
    name = line.substr(start + copro.size(), key - start - copro.size());
  return SplitAt(std::string(Trim(line.substr(key + 2))), "/");
}

// Reports of Kelp 0.1 have no such line.
void ReadStandards(ReportHeading& heading, const std::vector<std::string>& report) {
  for (const std::string& line : report) {
    const HeadingLine values = SplitHeading(line, kLowStandard, kHighStandard);
    if (!values.Left || !values.Right) continue;
    heading.LowStandard = SplitAt(Trimmed(values.Left), "/");
    heading.HighStandard = SplitAt(values.Right, "/");
    return;
  }
}

// A box of "0" was never read and one of -99 was skipped: neither is a blank to calculate with.
std::string ReadBlank(const std::string& shown) { return shown == "0" || Val(shown) <= -99 ? "" : shown; }

void TakeBlanks(Kelp& kelp, const std::optional<ValuePair>& blanks) {
  if (!blanks) return;
  FrmAcquire& form = kelp.frmAcquire;
  form.txtBlank[kBoxBeginBlank].Text = blanks->Begin;
  form.txtBlank[kBoxEndBlank].Text = blanks->End;
  kelp.run.BeginBlankText = ReadBlank(blanks->Begin);
  kelp.run.EndBlankText = ReadBlank(blanks->End);
  ShowAverageBlank(kelp);
}

void TakePair(FrmAcquire& form, const std::optional<ValuePair>& pair, int box) {
  if (!pair) return;
  form.txtBlank[box].Text = pair->Begin;
  form.txtBlank[box + 1].Text = pair->End;
}

}  // namespace

ReportHeading ReadHeading(const std::vector<std::string>& lines) {
  ReportHeading heading;
  const auto banner = std::find(lines.begin(), lines.end(), kReportBanner);
  const auto below = [&](std::ptrdiff_t count) {
    return lines.end() - banner > count ? std::string_view(*(banner + count)) : std::string_view();
  };
  heading.Cruise = Trimmed(SplitHeading(below(2), "    Expedition: BayTREK ", "Cast ").Left);
  heading.Ship = Trimmed(SplitHeading(below(3), "    Ship: ", "    Station: ").Left);
  const HeadingLine filtered = SplitHeading(below(4), "    Filtered: ", "Fluorometer: ");
  ReadFiltration(heading, filtered.Left);
  heading.Fluorometer = filtered.Right;

  const HeadingLine read = SplitHeading(below(5), "    Read: ", "F=");
  if (read.Left) {
    const DateAndTime at = SplitDateTime(*read.Left);
    heading.ReadDate = at.Date;
    heading.ReadTime = at.Time;
  }
  if (const auto constants = SplitAt(read.Right, ", tau=")) {
    heading.F = constants->Begin;
    heading.Tau = constants->End;
  }
  const HeadingLine readBy = SplitHeading(below(6), "    Read by: ", "begin/end: ");
  heading.Analyst = Trimmed(readBy.Left);
  heading.Blank = SplitAt(readBy.Right, "/");
  heading.Copro1 = ReadCopro(below(7), heading.CoproName1);
  heading.Copro2 = ReadCopro(below(8), heading.CoproName2);
  ReadStandards(heading, {banner, lines.end()});
  return heading;
}

void TakeReportHeading(Kelp& kelp, const std::vector<std::string>& lines) {
  const ReportHeading heading = ReadHeading(lines);
  FrmAcquire& form = kelp.frmAcquire;
  const auto take = [](std::string& box, const std::optional<std::string>& text) {
    if (text) box = *text;
  };
  take(form.txtStaInfo[kStaFiltDate].Text, heading.FiltDate);
  take(form.txtStaInfo[kStaFiltTime].Text, heading.FiltTime);
  take(form.txtStaInfo[kStaFluorometer].Text, heading.Fluorometer);
  take(form.txtStaInfo[kStaF].Text, heading.F);
  take(form.txtStaInfo[kStaTau].Text, heading.Tau);
  take(form.Combo1.Text, heading.Analyst);
  if (heading.ReadDate) kelp.run.RunDate = *heading.ReadDate + "," + *heading.ReadTime;
  TakeBlanks(kelp, heading.Blank);
  TakePair(form, heading.LowStandard, kBoxLowStandard);
  TakePair(form, heading.HighStandard, kBoxHighStandard);
  TakePair(form, heading.Copro1, kBoxCopro1);
  TakePair(form, heading.Copro2, kBoxCopro2);
}

}  // namespace kelp
