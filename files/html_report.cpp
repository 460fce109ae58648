// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/html_report.hpp"

#include "files/report.hpp"

namespace kelp {

namespace {

std::string Escaped(const std::string& line) {
  std::string html;
  for (const char c : line) {
    switch (c) {
      case '<': html += "&lt;"; break;
      case '>': html += "&gt;"; break;
      case '&': html += "&amp;"; break;
      default: html += c;
    }
  }
  return html;
}

}  // namespace

std::string HtmlReport(const std::vector<std::string>& lines) {
  std::string page = "<html>\r\n<body>\r\n<pre>\r\n";
  for (const std::string& line : lines)
    page += (line == kReportBanner ? "<B>" + line + "</B>" : Escaped(line)) + "\r\n";
  return page + "</pre>\r\n</body>\r\n</html>\r\n";
}

}  // namespace kelp
