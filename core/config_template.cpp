// SPDX-License-Identifier: GPL-3.0-or-later
// The default configuration, written when no file exists.
#include "core/config.hpp"
#include "core/text.hpp"

namespace kelp {

void SetDefaultConfig(RunState& run) {
  struct Row {
    const char* value;
    const char* description;
  };
  // Lines 38 to 40 are spare on purpose: the file always has 41 lines, so that numbers never move.
  static constexpr Row kRows[kCfgLineCount] = {
      {"0707SL", "00 - Cruise"},
      {"Sea Lantern", "01 - Ship"},
      {"TQB RMV KPD HNL WGE FX ZC", "02 - Initials List (List primary runner 1st)"},
      {"Q:\\vault\\2007\\0707\\chl\\", "03 - data output path"},
      {"Q:\\vault\\2007\\0707\\mrk\\", "04 - CTD hdr file dir"},
      {"D:\\backup\\", "05 - Kelp Backup Root Dir (Do Not Change!)"},
      {"ZEPHOR", "06 - Fluorometer"},
      {"0.00987", "07 - Machine Factor"},
      {"2.011", "08 - Acid Ratio"},
      {"1", "09 - Comport"},
      {"9600,n,8,1", "10 - Port Settings"},
      {"1000", "11 - Tmp file read interval: 100=.1 secs"},
      {"10", "12 - Minimum Number of Reads"},
      {"10", "13 - Number of Reads to average"},
      {"0.0010", "14 - Standard deviation"},
      {"0.00 0.00 0.00 0.00", "15 - Default Blank Values 1x"},
      {"0.00 0.00 0.00 0.00", "16 - Default Blank Values 100x"},
      {"Current", "17 - Default Blank Values to save in data file (Current or Ave)"},
      {"138", "18 - Volume filtered (usually 138 or 142)"},
      {"8", "19 - Extraction/acetone volume (usually 10)"},
      {"7", "20 - Starting Bottle Number (usually 7)"},
      {"1", "21 - Proc #    (required for importing sta info)"},
      {"93.3 .7", "22 - Sta       (importable from hdr file, if available)"},
      {"ROS", "23 - Cast Type (importable from hdr file, if available)"},
      {"", "24 - Cast Date (importable from hdr file, if available)"},
      {"", "25 - Filtration Date (Last Sample)"},
      {"", "26 - Run Date (Last Sample)"},
      {"", "27 - Last analyst"},
      {"1", "28 - Tube count (incremented from last tube)"},
      {"3-1", "29 - Coproporphyrin Low standard"},
      {"1.530", "30 - Coproporphyrin Low running average"},
      {"2-5", "31 - Coproporphyrin High standard"},
      {"5.030", "32 - Coproporphyrin High running average"},
      {"47", "33 - Upper fluorometer limit,change if max reading differs"},
      {"0.010", "34 - blank upper limit for Zephor"},
      {"0.035", "35 - blank upper limit for AWOL"},
      {"01", "36 - 01 = Printer online; 00 - no Printer available"},
      {"01", "37 - 01 = Save database-friendly csv; 00 - no csv output"},
      {"", "38 - Open"},
      {"", "39 - Open"},
      {"", "40 - Open"},
  };
  for (std::size_t i = 0; i < run.CfgLines.size(); ++i)
    run.CfgLines[i] = Padded(kRows[i].value, 35, "R", "S") + kRows[i].description;
}

}  // namespace kelp
