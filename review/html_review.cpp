// SPDX-License-Identifier: GPL-3.0-or-later
#include "review/html_review.hpp"

#include "core/numbers.hpp"
#include "core/text.hpp"
#include "review/chart_picture.hpp"
#include "review/profile_picture.hpp"
#include "review/svg.hpp"

namespace kelp {

namespace {

constexpr const char* kStyle =
    "body{font:15px/1.45 sans-serif;margin:24px auto;max-width:1000px;padding:0 16px;background:var(--paper);"
    "color:var(--i0)}h1{font-size:24px}h2{font-size:19px;margin-top:32px}table{border-collapse:collapse;"
    "width:100%}"
    "th,td{text-align:left;padding:3px 10px 3px 0;border-bottom:1px solid var(--i2);vertical-align:top}"
    "td.w{white-space:nowrap}"
    "td.n,th.n{text-align:right;font-variant-numeric:tabular-nums}thead{display:table-header-group}"
    ".pair{display:flex;flex-wrap:wrap;gap:8px}svg{max-width:100%;height:auto}tr,svg,.pair{break-inside:"
    "avoid}"
    "@page{size:A4;margin:14mm}@media print{body{font-size:9pt;margin:0;max-width:none;padding:0}"
    "h2{break-after:avoid}.pair{flex-wrap:nowrap}.pair svg{width:49%}}\n";

std::string Cell(const std::string& text, bool number = false) {
  return (number ? "<td class=\"n\">" : "<td>") + XmlText(text) + "</td>";
}

std::string Box(const Measured& value) { return value ? SavedText(*value) : "-"; }

void PutFindings(const Review& review, const Put& put) {
  put("<h2>Checks</h2>\n");
  if (review.Findings.empty()) {
    put("<p>Nothing was found.</p>\n");
    return;
  }
  put("<table><thead><tr><th>Station</th><th>Where</th><th>What</th></tr></thead>\n");
  for (const Finding& finding : review.Findings)
    put("<tr>" + Cell(finding.ProcNum.empty() ? "all" : finding.ProcNum) + Cell(finding.Where) +
        Cell(finding.Text) + "</tr>\n");
  put("</table>\n");
}

void PutStations(const Review& review, const Put& put) {
  put("<h2>Stations</h2>\n<table><thead><tr><th>Station</th><th>Line.Sta</th><th>Read</th><th>By</th>"
      "<th class=\"n\">Samples</th><th class=\"n\">F</th><th class=\"n\">tau</th><th class=\"n\">Blank "
      "begin</th>"
      "<th class=\"n\">end</th></tr></thead>\n");
  for (std::size_t i = 0; i < review.Stations.size(); ++i) {
    const StationFile& file = review.Cruise.Stations[i];
    const Station& station = review.Stations[i];
    put("<tr>" + Cell(file.ProcNum) + Cell(file.Station) + "<td class=\"w\">" +
        XmlText(file.ReadDate + " " + file.ReadTime) + "</td>" + Cell(file.Analyst) +
        Cell(std::to_string(file.Samples.size()), true) + Cell(file.F, true) + Cell(file.Tau, true) +
        Cell(Box(station.Blank.Begin), true) + Cell(Box(station.Blank.End), true) + "</tr>\n");
  }
  put("</table>\n");
}

void PutList(const std::string& heading, const std::vector<LeftOut>& list, const Put& put) {
  if (list.empty()) return;
  put("<h2>" + heading + "</h2>\n<table>\n");
  for (const LeftOut& item : list) put("<tr>" + Cell(item.File) + Cell(item.Reason) + "</tr>\n");
  put("</table>\n");
}

}  // namespace

void WriteHtmlReview(const Review& review, const FinalData& data, const std::vector<const Station*>& shown,
                     const Put& put) {
  const std::string title = XmlText("Cruise " + review.Cruise.Name);
  put("<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n<meta name=\"viewport\" "
      "content=\"width=device-width\">\n<title>" +
      title + "</title>\n<style>\n" + SvgStyle() + kStyle + "</style>\n</head>\n<body>\n<h1>" + title +
      "</h1>\n<p>" + Counted(review.Stations.size(), "station") + ", " + Counted(data.Rows.size(), "sample") +
      " in the final data, " + Counted(data.Left.size(), "file") + " left out, " +
      Counted(review.Findings.size(), "finding") + ".</p>\n");
  PutFindings(review, put);
  put("<h2>Control charts</h2>\n");
  for (const ControlChart& chart : review.Charts) put(SvgElement(ChartPicture(chart)));
  PutStations(review, put);
  put("<h2>Profiles</h2>\n");
  for (const Station* station : shown)
    put("<div class=\"pair\">\n" + SvgElement(ProfilePicture({station})) +
        SvgElement(RatioPicture({station})) + "</div>\n");
  PutList("Files left out of the final data", data.Left, put);
  PutList("Samples without results", data.Notes, put);
  put("</body>\n</html>\n");
}

}  // namespace kelp
