// SPDX-License-Identifier: GPL-3.0-or-later
// The small windows of a run: the create screen, the chooser, and the dialogs that steer a run.
#pragma once

#include "core/controls.hpp"

namespace kelp {

struct FrmCreateBase {
  Window Form{"Create Chl Base File"};
  ControlArray<TextBox, 7> Text1{{{
      {"", "Enter the Processing or Station number (ie 01 or 801)"},
      {"", "BayTREK Line and Station (ie 90.90 or SURFX)"},
      {"", "Total number of samples for this station (refer to sample log sheet)"},
      {"", "Refer to Sample Log - Niskin Number of 1st Sample"},
      {"", "Refer to Sample Log or Sample Vial - Vial# of 1st sample"},
      {"", "Date the sample(s) were filtered"},
      {"", "Time (PST) the sample(s) were filtered"},
  }}};
  ControlArray<Label, 7> Label1{{{
      {"ProcNum: "},
      {"Line.Sta: "},
      {"Total Number of Samples: "},
      {"Starting Bottle Number: "},
      {"Starting Vial Number: "},
      {"Filtration Date: "},
      {"Filtration Time:"},
  }}};
  /// 0 creates, 2 quits; 1 is not on the screen.
  ControlArray<Button, 3> cmdCreateBase{{{
      {"Create File", "Creates a base file using the above settings"},
      {"", "", false, false},
      {"Quit", "CAUTION!  Exits Data Logging Program"},
  }}};

  static void VisitControls(auto& self, auto&& visit) {
    visit("Label1", self.Label1);
    visit("Text1", self.Text1);
    visit("cmdCreateBase", self.cmdCreateBase);
  }
};

struct FrmWhatsNext {
  Window Form{"Select What's Next"};
  // Options 1 to 4 carry the tooltip of a neighbour, and the two check boxes share one; they are kept
  // as the analysts know them.
  ControlArray<OptionButton, 7> Option1{{{
      {"&Next Station", "Saves this station and loads the next"},
      {"&Add a sample", "Saves the station data and loads the SURFX file"},
      {"&End Blank", "Adds a sample to the end of the station data"},
      {"End &Standard", "Run End Blanks of 90% Acetone"},
      {"End &Copros", "Run Low & High Standards"},
      {"Print/Save", "When loading a file that is already run, generates new output files & printout"},
      {"Quit", "Saves the station and sets the program into Standby mode"},
  }}};
  ControlArray<CheckBox, 2> Check2{{{
      {"Printer Online", "Print out a hardcopy during the run(s)"},
      {"Access File", "Print out a hardcopy during the run(s)"},
  }}};
  Button NextButton{"OK", "Select what's next then click [OK]"};
  Button StopButton{"Cancel", "Return to the aquisition form without saving the file(!)"};
  Button PrinterSelect{"&Printer Select"};
  Label Label1{"Don't forget to write down the last Ra and Rb..."};
  int Top = 0;  ///< twips

  static void VisitControls(auto& self, auto&& visit) {
    visit("Option1", self.Option1);
    visit("Check2", self.Check2);
    visit("Label1", self.Label1);
    visit("NextButton", self.NextButton);
    visit("StopButton", self.StopButton);
    visit("PrinterSelect", self.PrinterSelect);
  }
};

struct FrmChangeStep {
  Window Form{"Change KElp Process"};
  ControlArray<OptionButton, 8> Option1{{{
      {"Start - stops everything back to square 1"},
      {"Load Blank"},
      {"Read Blank"},
      {"Load Copro 1"},
      {"Read Copro 1"},
      {"Load Sample"},
      {"Read Rb"},
      {"Read Ra"},
  }}};
  ControlArray<Button, 2> Command1{{{{"Reset to Selection"}, {"Cancel"}}}};
  Label Label1{"Sample #:"};
  TextBox Text1;

  static void VisitControls(auto& self, auto&& visit) {
    visit("Option1", self.Option1);
    visit("Label1", self.Label1);
    visit("Text1", self.Text1);
    visit("Command1", self.Command1);
  }
};

struct DlgRunRem {
  Window Form{"Run Remarks"};
  Label Frame2{"Remarks for "};
  Label Frame1{"Source"};
  /// 0 and 1 choose the source, 2 and 3 the sample.
  ControlArray<OptionButton, 4> Option1{{{
      {"Filterer"},
      {"Reader", "", true, true, true},
      {"Current/Last Run", "", true, true, true},
      {"Next Sample"},
  }}};
  Label Label1{"Enter Run Remarks:"};
  TextBox Text1;
  Button OKButton{"OK"};
  Button CancelButton{"Cancel"};

  static void VisitControls(auto& self, auto&& visit) {
    visit("Frame2", self.Frame2);
    visit("Frame1", self.Frame1);
    visit("Option1", self.Option1);
    visit("Label1", self.Label1);
    visit("Text1", self.Text1);
    visit("OKButton", self.OKButton);
    visit("CancelButton", self.CancelButton);
  }
};

struct FrmRecalc {
  FrmRecalc() {
    // All five boxes and labels carry the same tooltip, copy for copy.
    for (auto& box : Text1) box.ToolTipText = "Enter beginning blank to use or KElp will use kelp.cfg value";
    for (auto& label : Label1) label.ToolTipText = Text1[0].ToolTipText;
    // The buttons use the first two boxes only: the others tell the station's values.
    for (int i = 2; i < Text1.kCount; ++i) Text1[i].Locked = true;
  }

  Window Form{"Data found - recalculate or reload base?"};
  Label Label2{
      "Samples with this proc# appear to have been run already.  If this is an error, select [Reload Base "
      "File] and run samples or key-enter missing data, otherwise, to recalculate/reprint use [Recalculate "
      "Data]."};
  /// 0 starting vial, 1 begin blank, 2 end blank, 3 filtration volume, 4 extraction volume.
  ControlArray<TextBox, 5> Text1{{{{}, {}, {}, {"138"}, {}}}};
  ControlArray<Label, 5> Label1{
      {{{"Starting Vial #:"}, {"Beg Blank:"}, {"End Blank:"}, {"Filtration Vol: "}, {"Extraction Vol: "}}}};
  ControlArray<Button, 3> Command1{{{
      {"Recalculate Data",
       "Recalculates chl-a and phaeos based on data loaded from previous run; enter blank and vial values "
       "not "
       "saved in base file"},
      {"Reload Base File", "Loads empty base file for fresh run, data will append"},
      {"Cancel"},
  }}};

  static void VisitControls(auto& self, auto&& visit) {
    visit("Label2", self.Label2);
    visit("Label1", self.Label1);
    visit("Text1", self.Text1);
    visit("Command1", self.Command1);
  }
};

}  // namespace kelp
