// SPDX-License-Identifier: GPL-3.0-or-later
// The columns of the final data. Names are those of the station database, so that both can be joined.
#include "review/final_data.hpp"

namespace kelp {

const std::vector<FinalColumn>& FinalColumns() {
  static const std::vector<FinalColumn> kColumns = {
      {"CruzID", "", "cruise"},
      {"OccLine", "", "line: first word of the station's name"},
      {"OccStation", "", "station: second word of the station's name"},
      {"ProcessingNumber", "", "processing number of the station"},
      {"Niskin", "", "bottle"},
      {"SCTube Number", "", "vial"},
      {"Depth", "m", "depth; 3 where nobody typed another"},
      {"FiltrVolume", "mL", "filtered volume; 0 or empty is calculated as 138"},
      {"ExtractedVolume", "mL", "volume of the extract; 0 or empty is calculated as 8"},
      {"DateFiltration", "", "date of filtration"},
      {"TimeFiltration", "", "time of filtration"},
      {"ReadDate", "", "date of reading"},
      {"ReadTime", "", "time of reading"},
      {"ReadBy", "", "initials of the analyst"},
      {"Fluorometer", "", "fluorometer"},
      {"BeginBlank", "reading", "blank before the samples; empty when not read"},
      {"EndBlank", "reading", "blank behind the samples; empty when not read"},
      {"AverBlank", "reading", "blank of the calculation: mean of both, or the one that was read"},
      {"Rb", "reading", "reading before acid, blank not subtracted; -99 when skipped"},
      {"Ra", "reading", "reading after acid, blank not subtracted; -99 when skipped"},
      {"PreCalF", "ug/mL per reading", "F with which the station was run"},
      {"PreCalTau", "", "tau with which the station was run"},
      {"PostCalF", "ug/mL per reading", "F after the cruise; empty when there is none"},
      {"PostCalTau", "", "tau after the cruise; empty when there is none"},
      {"AverCalF", "ug/mL per reading", "F of the calculation: mean of both, or that of before"},
      {"AveCalTau", "", "tau of the calculation: mean of both, or that of before"},
      {"ChloroA", "ug/L", "chlorophyll-a; -99 when a reading lies below the blank"},
      {"Phaeo", "ug/L", "phaeopigment; -99 when a reading lies below the blank"},
      {"AR", "", "acid ratio (Rb - blank) / (Ra - blank)"},
      {"QCFlag", "", "flag of the acid ratio at its depth: empty is fine, * to **** ever worse"},
      {"HoursToRun", "h", "hours from filtration to reading; empty when unknown or below 0"},
      {"CommFilterer", "", "remark of who filtered"},
      {"CommReader", "", "remark of who read"},
  };
  return kColumns;
}

std::size_t FinalColumnIndex(const std::string& name) {
  std::size_t index = 0;
  while (FinalColumns().at(index).Name != name) ++index;
  return index;
}

}  // namespace kelp
