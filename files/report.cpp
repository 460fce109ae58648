// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/report.hpp"

#include "core/results_line.hpp"
#include "core/text.hpp"
#include "files/station_values.hpp"

namespace kelp {

namespace {

constexpr std::size_t kLeftWidth = 34;
constexpr std::size_t kRightWidth = 30;

std::string Halves(const std::string& left, const std::string& right) {
  return Padded(OneField(left, false), kLeftWidth, "R", "S") +
         Padded(OneField(right, false), kRightWidth, "L", "S");
}

// The copros stand under the blanks, in the right half.
std::string CoproLine(const Kelp& kelp, const std::string& name, int box) {
  return Halves("", "Copro " + name + ": " + BoxText(kelp, box) + "/" + BoxText(kelp, box + 1));
}

std::string Standards(const Kelp& kelp, int box) { return BoxText(kelp, box) + "/" + BoxText(kelp, box + 1); }

// Behind the samples: both standards, begin and end, and the remarks with bottle and author.
void AddFooter(std::vector<std::string>& lines, const Kelp& kelp) {
  const FrmAcquire& form = kelp.frmAcquire;
  lines.emplace_back();
  lines.push_back(Halves(kLowStandard + Standards(kelp, kBoxLowStandard),
                         kHighStandard + Standards(kelp, kBoxHighStandard)));
  for (int row = 1; row <= kelp.run.SampCount; ++row)
    for (const auto& [column, who] : {std::pair{kColFiltCom, "filterer"}, {kColReadCom, "reader"}})
      if (const std::string& text = form.datalog.Text(row, column); !text.empty())
        lines.push_back("    Remark, bottle " + form.datalog.Text(row, kColBottle) + ", " + who + ": " +
                        OneField(text, false));
}

}  // namespace

std::vector<std::string> ReportLines(const Kelp& kelp) {
  const RunState& run = kelp.run;
  const FrmAcquire& form = kelp.frmAcquire;
  const auto box = [&](StaInfo index) { return std::string(Trim(form.txtStaInfo[index].Text)); };
  const DateAndTime read = ReadAt(run);
  std::vector<std::string> lines = {
      "",
      "",
      kReportBanner,
      "",
      Halves("    Expedition: BayTREK " + run.CruiseID, "Cast " + run.ProcNum),
      Halves("    Ship: " + run.ShipName, "    Station: " + box(kStaLineSta)),
      Halves("    Filtered: " + box(kStaFiltDate) + " " + box(kStaFiltTime),
             "Fluorometer: " + box(kStaFluorometer)),
      Halves("    Read: " + read.Date + " " + read.Time, "F=" + box(kStaF) + ", tau=" + box(kStaTau)),
      Halves("    Read by: " + std::string(Trim(form.Combo1.Text)),
             "begin/end: " + BlankText(kelp, kBoxBeginBlank) + "/" + BlankText(kelp, kBoxEndBlank)),
      CoproLine(kelp, run.CoproLowStd, kBoxCopro1),
      CoproLine(kelp, run.CoproHighStd, kBoxCopro2),
      "",
      kResultsHeading,
      kResultsRule,
  };
  // Four blanks put the results line of the local results file under the heading.
  Grid datalog = form.datalog;
  for (int row = 1; row <= run.SampCount; ++row) {
    for (const int col : {kColRb, kColRa}) datalog.Text(row, col) = CellText(kelp, row, col);
    lines.push_back("    " + ResultsLine(datalog, row));
  }
  AddFooter(lines, kelp);
  return lines;
}

}  // namespace kelp
