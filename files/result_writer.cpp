#include "files/result_writer.hpp"
#include "files/ctd_import.hpp"
#include "files/report.hpp"
#include "files/table_field.hpp"

namespace kelp {
void ImportCtdHeader(Kelp& /*kelp*/) {}
void ImportCtdMark(Kelp& /*kelp*/) {}
std::vector<std::string> ReportLines(const Kelp& /*kelp*/) { return {}; }
void TakeReportHeading(Kelp& /*kelp*/, const std::vector<std::string>& /*lines*/) {}
std::string FieldFromCell(std::string_view cell) { return std::string(cell); }
std::string CellFromField(std::string_view field) { return std::string(field); }
bool SaveStationResults(Kelp& /*kelp*/) { return true; }
}  // namespace kelp
