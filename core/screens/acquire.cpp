// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/screens/acquire.hpp"

#include <algorithm>

namespace kelp {

namespace {

void SetHeaderBoxes(FrmAcquire& form) {
  struct Row {
    const char* label;
    const char* text;
    const char* tip;
  };
  // The tooltips of AveBlank and the copros repeat those of other boxes; they are kept as they are.
  static constexpr Row kRows[] = {
      {"Proc#:", "Proc #", "Processing number given to the station"},
      {"Line.Sta:", "Line.Sta", "BayTREK Line.Sta - imported from hdr when available"},
      {"FluorID:", "KVBD", "Fluorometer \"name\""},
      {"F = ", "0.109", "F=Door Factor from fluorometer calib sheet"},
      {"tau = ", "2.288", "tau = Acid ratio from fluorometer calib sheet"},
      {"FiltrVol:", "138", "Sample bottle vol"},
      {"Samp # ", "", "Starting sample number = bottle number"},
      {"Vial # ", "", "Extraction vial number"},
      {"ExtrctVol", "", "Acetone extraction vol"},
      {"Flt Date ", "", "Filtration Date: default is date of last bottle closed + 1hr.  Change as needed."},
      {"FltrTime ", "", "Filtration Time: Time of last bottle trip + 1 hour.  Change as needed."},
      {"AveBlank", "", "Starting sample number = bottle number"},
      {"Copro1", "", "Extraction vial number"},
      {"Copro2", "", "Acetone extraction vol"},
  };
  for (int i = 0; i < form.txtStaInfo.kCount; ++i) {
    form.lblStaInfo[i].Caption = kRows[i].label;
    form.txtStaInfo[i].Text = kRows[i].text;
    form.txtStaInfo[i].ToolTipText = kRows[i].tip;
  }
  form.lblStaInfo[kStaTau].ToolTipText = "tau = Acid Ratio from recent calibration";
  form.lblStaInfo[14].Caption = "Initials  ";
}

void SetReadingBoxes(FrmAcquire& form) {
  for (int i = 0; i < 10; ++i) {
    form.txtRead[i].Text = "Read " + std::to_string(i + 1);
    // Read 6 to Read 10 repeat the tooltips of the first five.
    form.txtRead[i].ToolTipText = "Raw fluorometer value " + std::to_string(i % 5 + 1);
  }
  for (int k = 1; k <= 20; ++k) {
    form.txtMean[k].Text = "Mean " + std::to_string(k);
    // Mean 11 and Mean 12 carry the same span.
    const int first = k == 11 ? 110 : (k - 1) * 10;
    form.txtMean[k].ToolTipText =
        "Fluorometer Average " + std::to_string(first) + "-" + std::to_string(first + 10) + "secs";
  }
}

void SetBlankBoxes(FrmAcquire& form) {
  static constexpr const char* kLabels[] = {
      "Begin Blank ", "End Blank ",  "Low Standard ", "Low Stnd End ", "High Standard ", "High Stnd End ",
      "Copro1 ",      "Copro1 End ", "Copro2 ",       "Copro2 End ",   "AutoCrit: "};
  static constexpr const char* kTips[] = {
      "Beginning Acetone Blank Reading",     "End Acetone Blank Read",
      "Turner Designs low solid standard ",  "Turner Designs low solid standard ",
      "Turner Designs high solid standard ", "Turner Designs high solid standard "};
  for (int i = 0; i <= kBoxAutoCriterion; ++i) {
    form.lblBlank[i].Caption = kLabels[i];
    if (i < 6) form.txtBlank[i].ToolTipText = kTips[i];
    form.txtBlank[i].Text = "0";
  }
  form.txtBlank[kBoxAutoCriterion].Text = "0.0000";
  form.txtBlank[kBoxAutoCriterion].ToolTipText = "Autoread criteria (SD*Multiplier)*CINT(Reading)";
  form.lblBlank[kBoxAutoCriterion].ToolTipText = "Autoread criteria (SD*Multiplier)*CINT(Reading)";
}

void SetGrid(Grid& grid) {
  static constexpr const char* kHeaders[] = {"V#",    "S#", "Dpt",  "Rb",  "Ra",  "Chla",    "Phaeo",
                                             "AcidR", "QC", "FilV", "ExV", "FlV", "FiltCom", "ReadCom"};
  grid.ToolTipText = "Data display";
  grid.ColWidth = {400, 400, 500, 700, 700, 700, 700, 700, 500, 500, 500, 600, 0, 0};
  for (int col = 0; col < grid.Cols; ++col) grid.Text(0, col) = kHeaders[col];
  for (int row = 1; row < grid.Rows; ++row)
    for (int col = 0; col < grid.Cols; ++col)
      grid.At(row, col).BackColor = col == kColRb || col == kColRa ? 0xFFFFFF : kGreyCell;
}

}  // namespace

FrmAcquire::FrmAcquire() {
  SetHeaderBoxes(*this);
  SetReadingBoxes(*this);
  SetBlankBoxes(*this);
  SetGrid(datalog);
  Option1[kStepBlank].Value = true;
}

}  // namespace kelp
