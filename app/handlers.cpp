// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/handlers.hpp"

#include "app/acquire_keys.hpp"
#include "app/door.hpp"
#include "app/editor.hpp"
#include "app/focus.hpp"
#include "app/leaving.hpp"
#include "app/main_window.hpp"
#include "app/undo.hpp"
#include "core/option.hpp"
#include "core/text.hpp"
#include "record/record.hpp"
#include "workflow/dialogs.hpp"
#include "workflow/open_station.hpp"
#include "workflow/run_controls.hpp"
#include "workflow/steps.hpp"
#include "workflow/whats_next.hpp"

namespace kelp {

namespace {

// Selects the option button that was clicked.
template <auto Screen, auto Options>
void Select(Kelp& kelp, int index) {
  SelectOption(kelp.*Screen.*Options, index);
}

void Toggle(CheckBox& box) { box.Value = !box.Value; }

// The run remarks choose a source (0, 1) and a sample (2, 3) independently.
void SelectRemarkOption(Kelp& kelp, int index) {
  auto& options = kelp.dlgRunRem.Option1;
  const int first = index < 2 ? 0 : 2;
  options[first].Value = index == first;
  options[first + 1].Value = index != first;
}

void cmdCreateBase_Click(Kelp& kelp, int index) {
  if (index == 0) CreateBaseFile(kelp);
  if (index == 2 && MayLeave(kelp)) EndProgram(kelp);
}

void RefuseProgramsWords(Kelp& kelp) {
  SetStatus(kelp, "This box holds the program's own words: nothing can be typed there.");
}

void frmEditCFG_Text1_LostFocus(Kelp& kelp, int index) {
  if (index != FrmEditCFG::kFirstBox || !kelp.frmEditCFG.CruiseEdited) return;
  kelp.frmEditCFG.CruiseEdited = false;
  frmEditCFG_CruiseLostFocus(kelp);
}

void ClickOn(Kelp& kelp, const FocusPlace& place) { Post(kelp, {.Kind = EventKind::Click, .Place = place}); }

// Enter leads to the next box of a form that is filled in; elsewhere to the button that goes on.
void GoToNextBox(Kelp& kelp, const FocusPlace& focus) { TabOn(kelp, focus.Screen); }
void GoToStart(Kelp& kelp) { MoveFocus(kelp, {"frmAcquire", "Command1"}); }

void ClickFocusOr(Kelp& kelp, const FocusPlace& focus, const char* button) {
  const bool onButton = std::holds_alternative<Button*>(ControlAt(kelp, focus));
  ClickOn(kelp, onButton ? focus : FocusPlace{focus.Screen, button});
}

constexpr HandlerRow kHandlers[] = {
    {"frmMain", "Command1", Doing::Click, FrmMain_Command1_Click},
    {"frmMain", "Text1", Doing::Edited,
     [](Kelp& kelp, int index, const std::string& text) {
       if (index == 4) kelp.frmMain.LastTube = text;
     }},
    {"frmMain", "", Doing::Close, QuitFromMain},

    {"frmLogin", "cmdOK", Doing::Click, cmdOK_Click},
    {"frmLogin", "cmdCancel", Doing::Click, cmdCancel_Click},
    {"frmLogin", "", Doing::Enter,
     [](Kelp& kelp, const FocusPlace& focus) { ClickFocusOr(kelp, focus, "cmdOK"); }},
    {"frmLogin", "", Doing::Close, cmdCancel_Click},
    {"frmLogin", "", Doing::Escape, LeaveLogin},

    {"frmAcquire", "Command1", Doing::Click, Command1_Click, How::Hand},
    {"frmAcquire", "Command2", Doing::Click, Command2_Click},
    {"frmAcquire", "Command3", Doing::Click, Command3_Click},
    {"frmAcquire", "Command4", Doing::Click, Command4_Click},
    {"frmAcquire", "Command5", Doing::Click, Command5_Click, How::Skipped},
    {"frmAcquire", "Command6", Doing::Click, Command6_Click},
    {"frmAcquire", "cmdUndo", Doing::Click, cmdUndo_Click},
    {"frmAcquire", "Check1", Doing::Click, [](Kelp& kelp) { Toggle(kelp.frmAcquire.Check1); }},
    {"frmAcquire", "Option1", Doing::Click,
     [](Kelp& kelp, int index) {
       SelectOption(kelp.frmAcquire.Option1, index);
       Option1_Click(kelp, index);
     }},
    {"frmAcquire", "txtMean", Doing::Click, txtMean_Click, How::MeanBox},
    {"frmAcquire", "datalog", Doing::DblClick, datalog_DblClick},
    {"frmAcquire", "txtBlank", Doing::Edit, txtBlank_Change},
    {"frmAcquire", "txtStaInfo", Doing::Edit, txtStaInfo_Change},
    {"frmAcquire", "Text4", Doing::Edit, RefuseProgramsWords},
    {"frmAcquire", "StatusBar1", Doing::Edit, RefuseProgramsWords},
    {"frmAcquire", "txtStaInfo", Doing::Leave, txtStaInfo_LostFocus},
    {"frmAcquire", "txtStaInfo", Doing::Enter, GoToNextBox},
    {"frmAcquire", "txtBlank", Doing::Enter,
     [](Kelp& kelp, const FocusPlace& focus) {
       focus.Index <= 3 ? GoToNextBox(kelp, focus) : GoToStart(kelp);
     }},
    {"frmAcquire", "", Doing::Enter, GoToStart},
    {"frmAcquire", "", Doing::FunctionKey, frmAcquire_KeyDown},
    {"frmAcquire", "", Doing::Close, Command3_Click},

    {"frmCreateBase", "cmdCreateBase", Doing::Click, cmdCreateBase_Click},
    {"frmCreateBase", "Text1", Doing::Edited, CheckCreateBase},
    {"frmCreateBase", "Text1", Doing::Leave, CreateBox_LostFocus},
    {"frmCreateBase", "Text1", Doing::Enter, GoToNextBox},
    {"frmCreateBase", "", Doing::Close, QuitFromMain},
    {"frmCreateBase", "", Doing::Escape, LeaveCreateBase},

    {"frmWhatsNext", "Option1", Doing::Click, Select<&Kelp::frmWhatsNext, &FrmWhatsNext::Option1>},
    {"frmWhatsNext", "Option1", Doing::DblClick,
     [](Kelp& kelp, int index) {
       SelectOption(kelp.frmWhatsNext.Option1, index);
       WhatsNextOption_DblClick(kelp, index);
     }},
    {"frmWhatsNext", "Check2", Doing::Click,
     [](Kelp& kelp, int index) { Toggle(kelp.frmWhatsNext.Check2[index]); }},
    {"frmWhatsNext", "NextButton", Doing::Click, NextButton_Click},
    {"frmWhatsNext", "StopButton", Doing::Click, StopButton_Click},
    {"frmWhatsNext", "PrinterSelect", Doing::Click, [](Kelp& kelp) { kelp.platform.ChoosePrinter(); }},
    {"frmWhatsNext", "", Doing::Enter,
     [](Kelp& kelp, const FocusPlace& focus) { ClickFocusOr(kelp, focus, "NextButton"); }},
    {"frmWhatsNext", "", Doing::FunctionKey, frmWhatsNext_KeyDown},
    {"frmWhatsNext", "", Doing::Close, StopButton_Click},
    {"frmWhatsNext", "", Doing::Escape, LeaveChooser},

    {"frmChangeStep", "Option1", Doing::Click, Select<&Kelp::frmChangeStep, &FrmChangeStep::Option1>},
    {"frmChangeStep", "Command1", Doing::Click, frmChangeStep_Command1_Click},
    {"frmChangeStep", "", Doing::Close, CloseChangeStep},
    {"frmChangeStep", "", Doing::Escape, CloseChangeStep},

    {"dlgRunRem", "Option1", Doing::Click, SelectRemarkOption},
    {"dlgRunRem", "OKButton", Doing::Click, dlgRunRem_OKButton_Click, How::Remark},
    {"dlgRunRem", "CancelButton", Doing::Click, CloseRemarks},
    {"dlgRunRem", "Text1", Doing::Enter,
     [](Kelp& kelp) {
       ClickOn(kelp, {"dlgRunRem", "OKButton"});
     }},
    {"dlgRunRem", "", Doing::Close, CloseRemarks},
    {"dlgRunRem", "", Doing::Escape, CloseRemarks},

    {"frmRecalc", "Command1", Doing::Click, frmRecalc_Command1_Click, How::Calculated},
    {"frmRecalc", "", Doing::Close, CloseRecalc},
    {"frmRecalc", "", Doing::Escape, CloseRecalc},

    {"frmEditCFG", "Option1", Doing::Click, Select<&Kelp::frmEditCFG, &FrmEditCFG::Option1>},
    {"frmEditCFG", "Command1", Doing::Click, frmEditCFG_Command1_Click},
    {"frmEditCFG", "cmdBack", Doing::Click, LeaveEditor},
    {"frmEditCFG", "Text1", Doing::Edited,
     [](Kelp& kelp, int index) {
       if (index == FrmEditCFG::kFirstBox) kelp.frmEditCFG.CruiseEdited = true;
     }},
    {"frmEditCFG", "Text1", Doing::Leave, frmEditCFG_Text1_LostFocus},
    {"frmEditCFG", "", Doing::Close, LeaveEditor},
    {"frmEditCFG", "", Doing::Escape, LeaveEditor},
};

}  // namespace

std::span<const HandlerRow> Handlers() { return kHandlers; }

const HandlerRow* HandlerOf(Doing what, const FocusPlace& place) {
  const HandlerRow* ofScreen = nullptr;
  for (const HandlerRow& row : kHandlers) {
    if (row.What != what || !SameIgnoringCase(row.Screen, place.Screen)) continue;
    if (row.Control.empty())
      ofScreen = &row;
    else if (SameIgnoringCase(row.Control, place.Control))
      return &row;
  }
  return ofScreen;
}

bool RunHandler(Kelp& kelp, Doing what, const FocusPlace& place, const std::string& text) {
  const HandlerRow* row = HandlerOf(what, place);
  if (row == nullptr) return false;
  std::visit(
      [&](const auto& handler) {
        if constexpr (requires { handler(kelp); })
          handler(kelp);
        else if constexpr (requires { handler(kelp, place.Index); })
          handler(kelp, place.Index);
        else if constexpr (requires { handler(kelp, place); })
          handler(kelp, place);
        else
          handler(kelp, place.Index, text);
      },
      row->Do);
  return true;
}

}  // namespace kelp
