// SPDX-License-Identifier: GPL-3.0-or-later
// The main window, the login and the notice shown during long saves.
#pragma once

#include "core/controls.hpp"

namespace kelp {

struct FrmMain {
  Window Form{"BayTREK Fluorometer Logging Program (KElp) v2019.04"};
  ControlArray<Button, 6> Command1{{{
      {"Run Samples", "Run Fluorometer Data Aquistion Module"},
      {"Edit kelp.cfg", "Edit the kelp.cfg with Notepad or ultraedit"},
      {"View/Edit Chlxxx File", "Edit chl raw data file with Notepad or ultraedit"},
      {"View/Edit Blanks File", "Edit the YYMMblanks data file with Notepad or ultraedit"},
      {"Quit", "Quit the Program"},
      {"Reload kelp.cfg", "Click here if you edited/updated the kelp.cfg"},
  }}};
  /// The last station run: 0 processing number, 1 line and station, 2 analyst, 3 run time, 4 last tube.
  ControlArray<TextBox, 5> Text1{{{{}, {}, {}, {}, {"Last sample run"}}}};
  ControlArray<Label, 5> lblText1{{{{"Proc #"}, {"Line.Sta "}, {"Operator"}, {"Run Time"}, {"LastTube"}}}};
  Label Label1{"Last Station Run"};

  /// The last tube as text; follows Text1(4).
  std::string LastTube = {};

  static void VisitControls(auto& self, auto&& visit) {
    visit("Command1", self.Command1);
    visit("Text1", self.Text1);
    visit("lblText1", self.lblText1);
    visit("Label1", self.Label1);
  }
};

struct FrmLogin {
  Window Form{"Login"};
  Label lblLabels{"&Operator: "};
  ComboBox Combo1;
  Button cmdOK{"OK"};
  Button cmdCancel{"Quit"};

  bool LoginSucceeded = false;

  static void VisitControls(auto& self, auto&& visit) {
    visit("lblLabels", self.lblLabels);
    visit("Combo1", self.Combo1);
    visit("cmdOK", self.cmdOK);
    visit("cmdCancel", self.cmdCancel);
  }
};

struct FrmProgress {
  Window Form{"Saving, Printing Data... Please Wait"};
  Label Label1{"Saving, printing data over the network... be patient..."};

  static void VisitControls(auto& self, auto&& visit) { visit("Label1", self.Label1); }
};

}  // namespace kelp
