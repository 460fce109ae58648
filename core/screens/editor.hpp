// SPDX-License-Identifier: GPL-3.0-or-later
// The configuration editor: line NN of the configuration is edited in Text1(200 + NN), line 17 by
// the two option buttons. Lines 33 to 37 are shown for reading; 38 to 40 are spare.
#pragma once

#include "core/controls.hpp"

namespace kelp {

struct FrmEditCFG {
  FrmEditCFG();

  static constexpr int kFirstBox = 200;
  static constexpr int kLineWithOptions = 17;
  static constexpr int kLastLine = 32;

  Window Form{"Edit Kelp.cfg"};
  /// Box 217 stands for line 17 and is not on the screen.
  ControlArray<TextBox, 33, kFirstBox> Text1;
  ControlArray<Label, 33, kFirstBox> Label1;
  ControlArray<OptionButton, 2> Option1{{{
      {"Current Blank or", "Use current single blank reading"},
      {"Ave Blank", "Use average blank reading"},
  }}};
  ControlArray<Button, 3> Command1{{{
      {"Update kelp.cfg", "Updates kelp.cfg and current settings"},
      {"Cancel/Menu", "Returns to menu without updating"},
      {"Quit", "Quit completely out of KElp"},
  }}};
  Button cmdBack{"Main window", "Back to where the editor was opened from, without updating"};
  /// Lines 33 to 37, which are changed in the file itself.
  ControlArray<TextBox, 5, 33> txtLine;
  ControlArray<Label, 5, 33> lblLine;
  Label lblLines{"Other lines (changed in a text editor)"};
  ControlArray<Label, 3> Label2{{{{"Station Settings"}, {"Sample Settings"}, {"Fluorometer Settings"}}}};

  bool CruiseEdited = false;  ///< the cruise box was edited and not left yet

  static void VisitControls(auto& self, auto&& visit) {
    visit("Label2", self.Label2);
    visit("Label1", self.Label1);
    visit("Text1", self.Text1);
    visit("Option1", self.Option1);
    visit("lblLines", self.lblLines);
    visit("lblLine", self.lblLine);
    visit("txtLine", self.txtLine);
    visit("Command1", self.Command1);
    visit("cmdBack", self.cmdBack);
  }
};

}  // namespace kelp
