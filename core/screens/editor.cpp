// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/screens/editor.hpp"

namespace kelp {

FrmEditCFG::FrmEditCFG() {
  struct Row {
    int line;
    const char* label;
    const char* text;
  };
  // The texts are placeholders that loading the editor overwrites.
  static constexpr Row kRows[] = {
      {0, "Cruise: ", "0804CM"},
      {1, "Ship: ", "Coral Meridian"},
      {2, "Initials List: ", "PWQ KTR BNM VLS HGF EZC"},
      {3, "Data Output Path: ", "C:\\VAULT\\0804\\chl\\"},
      {4, "CTD hdr/mrk Path: ", "C:\\VAULT\\0804\\mrk\\"},
      {5, "Backup Path: ", "D:\\backup\\"},
      {6, "Fluorometer: ", ""},
      {7, "Machine Factor: ", ""},
      {8, "Acid Ratio: ", ""},
      {9, "Comport: ", "1"},
      {10, "Port Settings: ", "9600,n,8,1"},
      {11, "Read Interval (ms): ", "1000"},
      {12, "Minimum Reads: ", "10"},
      {13, "Reads to Average: ", "10"},
      {14, "Standard Deviation: ", "0.0010"},
      {15, "Blanks 1x: ", ""},
      {16, "Blanks 100x: ", ""},
      {18, "Filtered Vol: ", "138"},
      {19, "Extraction Vol: ", "8"},
      {20, "Starting Btl: ", "7"},
      {21, "Last Proc #: ", ""},
      {22, "Last Sta Num: ", ""},
      {23, "Cast Type: ", ""},
      {24, "Cast Date-Time: ", "12May2003 1200"},
      {25, "Filtration Date-Time: ", "12May2003 1300"},
      {26, "Run Date-Time: ", "12May2003 1500"},
      {27, "Last Analyst: ", ""},
      {28, "Last Tube: ", ""},
      {29, "Copro1 (Low):", ""},
      {30, "Copro1 Ave:", ""},
      {31, "Copro2 (High):", ""},
      {32, "Copro2 Ave: ", ""},
  };
  for (const Row& row : kRows) {
    Label1[kFirstBox + row.line].Caption = row.label;
    Text1[kFirstBox + row.line].Text = row.text;
  }
  static constexpr Row kOthers[] = {
      {33, "33 Upper limit: ", "Readings above it are off scale; 40 or less switches the warning off"},
      {34, "34 Blank limit: ", "A blank above it is asked about before it is saved"},
      {35, "35 Blank limit AWOL: ", "The same for a fluorometer whose name begins with AWOL"},
      {36, "36 Printer: ", "01 = a printer is there and reports are printed, 00 = none"},
      {37, "37 Database csv: ", "01 = rows for the database are written, 00 = none"},
  };
  for (const Row& row : kOthers) {
    lblLine[row.line].Caption = row.label;
    lblLine[row.line].ToolTipText = txtLine[row.line].ToolTipText = row.text;
    txtLine[row.line].Locked = true;
  }
  Text1[kFirstBox + kLineWithOptions].Visible = false;
  Label1[kFirstBox + kLineWithOptions].Visible = false;
}

}  // namespace kelp
