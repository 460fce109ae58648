// SPDX-License-Identifier: GPL-3.0-or-later
// The acquisition screen, on which a station is run. Its grid and header boxes are the working store
// of the station's results.
#pragma once

#include "core/controls.hpp"

namespace kelp {

/// Columns of the grid `datalog`.
enum GridCol {
  kColVial = 0,
  kColBottle = 1,
  kColDepth = 2,
  kColRb = 3,
  kColRa = 4,
  kColChla = 5,
  kColPhaeo = 6,
  kColAcidR = 7,
  kColQc = 8,
  kColFilV = 9,
  kColExV = 10,
  kColFlV = 11,
  kColFiltCom = 12,
  kColReadCom = 13,
};

/// Indexes of `txtStaInfo`.
enum StaInfo {
  kStaProcNum = 0,
  kStaLineSta = 1,
  kStaFluorometer = 2,
  kStaF = 3,
  kStaTau = 4,
  kStaFiltrVol = 5,
  kStaBottle = 6,
  kStaVial = 7,
  kStaExtractVol = 8,
  kStaFiltDate = 9,
  kStaFiltTime = 10,
  kStaAveBlank = 11,
  kStaCopro1 = 12,
  kStaCopro2 = 13,
};

/// Indexes of `txtBlank`; the copro boxes follow the same pattern of begin and end.
enum BlankBox {
  kBoxBeginBlank = 0,
  kBoxEndBlank = 1,
  kBoxLowStandard = 2,
  kBoxHighStandard = 4,
  kBoxCopro1 = 6,
  kBoxCopro2 = 8,
  kBoxAutoCriterion = 10,
};

/// Indexes of the step selector `Option1`.
enum StepOption { kStepBlank = 0, kStepStandard = 1, kStepCopros = 2, kStepSamples = 3 };

inline constexpr int kMaxSamples = 100;
inline constexpr std::uint32_t kGreyCell = 0xE0E0E0;

struct FrmAcquire {
  FrmAcquire();

  Window Form{"Fluoresence Logging Program v2019.0801"};
  Button Command1{"&Start", "Press Start to begin or key-enter data then press F6"};
  Button Command2{"&Pause", "Pauses data logging until Resume is pressed"};
  Button Command3{"&Quit", "Exits the program completely!"};
  Button Command4{
      "&Back",
      "Jumps back one sample step - can be clicked multiple times to the beginning of the sample run"};
  Button Command5{"S&kip", "Skips to the next sample (enters -99 for both reads)"};
  Button Command6{"What's Next Tester"};
  Button cmdUndo{"Undo", "Nothing to take back", false};
  ControlArray<OptionButton, 4> Option1{{{
      {"Begin Blank", "Run Blank(s)"},
      {"Standard", "Run Standard(s)"},
      {"Copros", "Run Samples"},
      {"Samples", "Run SURFX sample(s)"},
  }}};
  Label Frame2{"Header Information"};
  ControlArray<TextBox, 14> txtStaInfo;
  ControlArray<Label, 15> lblStaInfo;
  ComboBox Combo1{"", "Operator's initials - pick from drop-down list or type in"};
  Label Frame1{"Fluorometer A"};
  TextBox Text1{"Fluorometer Output", "Raw fluorometer output display"};
  ControlArray<TextBox, 10> txtRead;
  ControlArray<TextBox, 20, 1> txtMean;
  TextBox txtReading{"", "Average Fluorometer Reading"};
  ControlArray<TextBox, 3> txtStats{{{
      {"", "Standard Dev of averaged reads"},
      {"", "Raw fluorometer reading"},
      {"", "Read counter"},
  }}};
  ControlArray<Label, 3> lblStats{{{
      {"Read #: "},
      {"RawRead: ", "Ave of last 10 Readings"},
      {"StdDev: ", "Standard Deviation"},
  }}};
  CheckBox Check1{"Autoread", "Autoread<>Manual Read Toggle"};
  ControlArray<TextBox, 11> txtBlank;
  ControlArray<Label, 11> lblBlank;
  Label pctCanvas{"", "Visual aid for determining stable reading"};
  TextBox Text4{"1: Load Blank\n2: When stable, press <Spacebar>\n    or Click [Start]",
                "Status and Instructions"};
  Grid datalog{kMaxSamples + 1, 14};
  TextBox StatusBar1;

  static void VisitControls(auto& self, auto&& visit) {
    visit("Command1", self.Command1);
    visit("Command2", self.Command2);
    visit("Command3", self.Command3);
    visit("Command4", self.Command4);
    visit("Command5", self.Command5);
    visit("Command6", self.Command6);
    visit("cmdUndo", self.cmdUndo);
    visit("Option1", self.Option1);
    visit("Frame2", self.Frame2);
    visit("txtStaInfo", self.txtStaInfo);
    visit("lblStaInfo", self.lblStaInfo);
    visit("Combo1", self.Combo1);
    visit("Frame1", self.Frame1);
    visit("Text1", self.Text1);
    visit("txtRead", self.txtRead);
    visit("txtMean", self.txtMean);
    visit("txtReading", self.txtReading);
    visit("txtStats", self.txtStats);
    visit("lblStats", self.lblStats);
    visit("Check1", self.Check1, 1);
    visit("txtBlank", self.txtBlank);
    visit("lblBlank", self.lblBlank);
    visit("pctCanvas", self.pctCanvas);
    visit("Text4", self.Text4, 0);
    visit("datalog", self.datalog);
    visit("StatusBar1", self.StatusBar1);
  }
};

}  // namespace kelp
