// Reads the heading of a saved report back into the header boxes.
#include <algorithm>
#include <optional>

#include "core/numbers.hpp"
#include "core/text.hpp"
#include "files/report.hpp"
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

struct Pair {
  std::string First;
  std::string Second;
};

std::optional<Pair> SplitAt(const std::optional<std::string>& text, std::string_view mark) {
  const auto at = text ? text->find(mark) : std::string::npos;
  if (at == std::string::npos) return {};
  return Pair{text->substr(0, at), text->substr(at + mark.size())};
}

void TakeFiltration(FrmAcquire& form, const std::optional<std::string>& text) {
  if (!text) return;
  // A blank in front: only the time was filled in.
  const DateAndTime filtered =
      text->starts_with(' ') ? DateAndTime{"", std::string(Trim(*text))} : SplitDateTime(*text);
  form.txtStaInfo[kStaFiltDate].Text = filtered.Date;
  form.txtStaInfo[kStaFiltTime].Text = filtered.Time;
}

// A box of "0" was never read and one of -99 was skipped: neither is a blank to calculate with.
std::string ReadBlank(const std::string& shown) { return shown == "0" || Val(shown) <= -99 ? "" : shown; }

void TakeBlanks(Kelp& kelp, const std::optional<Pair>& blanks) {
  if (!blanks) return;
  FrmAcquire& form = kelp.frmAcquire;
  form.txtBlank[kBoxBeginBlank].Text = blanks->First;
  form.txtBlank[kBoxEndBlank].Text = blanks->Second;
  kelp.run.BeginBlankText = ReadBlank(blanks->First);
  kelp.run.EndBlankText = ReadBlank(blanks->Second);
  ShowAverageBlank(kelp);
}

void TakePair(FrmAcquire& form, const std::optional<Pair>& values, int box) {
  if (!values) return;
  form.txtBlank[box].Text = values->First;
  form.txtBlank[box + 1].Text = values->Second;
}

std::optional<Pair> CoproOf(std::string_view line) {
  const auto key = line.rfind(": ");
  if (key == std::string_view::npos) return {};
  return SplitAt(std::string(Trim(line.substr(key + 2))), "/");
}

// Reports of Kelp 0.1 have no such line.
void TakeStandards(Kelp& kelp, const std::vector<std::string>& report) {
  for (const std::string& line : report) {
    const HeadingLine values = SplitHeading(line, kLowStandard, kHighStandard);
    if (!values.Left || !values.Right) continue;
    TakePair(kelp.frmAcquire, SplitAt(std::string(Trim(*values.Left)), "/"), kBoxLowStandard);
    TakePair(kelp.frmAcquire, SplitAt(values.Right, "/"), kBoxHighStandard);
    return;
  }
}

}  // namespace

void TakeReportHeading(Kelp& kelp, const std::vector<std::string>& lines) {
  FrmAcquire& form = kelp.frmAcquire;
  const auto banner = std::find(lines.begin(), lines.end(), kReportBanner);
  const auto below = [&](std::ptrdiff_t count) {
    return lines.end() - banner > count ? std::string_view(*(banner + count)) : std::string_view();
  };
  const HeadingLine filtered = SplitHeading(below(4), "    Filtered: ", "Fluorometer: ");
  TakeFiltration(form, filtered.Left);
  if (filtered.Right) form.txtStaInfo[kStaFluorometer].Text = *filtered.Right;

  const HeadingLine read = SplitHeading(below(5), "    Read: ", "F=");
  if (read.Left) {
    const DateAndTime at = SplitDateTime(*read.Left);
    kelp.run.RunDate = at.Date + "," + at.Time;
  }
  if (const auto constants = SplitAt(read.Right, ", tau=")) {
    form.txtStaInfo[kStaF].Text = constants->First;
    form.txtStaInfo[kStaTau].Text = constants->Second;
  }

  const HeadingLine readBy = SplitHeading(below(6), "    Read by: ", "begin/end: ");
  if (readBy.Left) form.Combo1.Text = Trim(*readBy.Left);
  TakeBlanks(kelp, SplitAt(readBy.Right, "/"));
  TakePair(form, CoproOf(below(7)), kBoxCopro1);
  TakePair(form, CoproOf(below(8)), kBoxCopro2);
  TakeStandards(kelp, {banner, lines.end()});
}

}  // namespace kelp
