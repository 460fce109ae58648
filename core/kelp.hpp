// SPDX-License-Identifier: GPL-3.0-or-later
// The whole program as one value: all screens, the run state and the platform. It is passed by
// reference to every handler; there is no hidden global.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "core/record_state.hpp"
#include "core/run_state.hpp"
#include "core/screens/acquire.hpp"
#include "core/screens/dialogs.hpp"
#include "core/screens/editor.hpp"
#include "core/screens/main_window.hpp"
#include "core/store_note.hpp"
#include "platform/platform.hpp"

namespace kelp {

/// A control by name; `Index` is -1 for one that is no member of an array.
struct FocusPlace {
  std::string Screen;
  std::string Control;
  int Index = -1;
};

/// The lock beside the open station's base file.
struct StationLockState {
  std::string Path = {};         ///< "" while no station is open
  std::int64_t RefreshedAt = 0;  ///< Platform::Milliseconds
};

struct Kelp {
  explicit Kelp(Platform& machine) : platform(machine) {}

  Platform& platform;
  RunState run;
  ReadLoopState loop;
  TimerState Timer1;
  RecordState record;
  StationLockState StationLock;

  FrmMain frmMain;
  FrmLogin frmLogin;
  FrmAcquire frmAcquire;
  FrmCreateBase frmCreateBase;
  FrmWhatsNext frmWhatsNext;
  FrmProgress frmProgress;
  FrmChangeStep frmChangeStep;
  DlgRunRem dlgRunRem;
  FrmRecalc frmRecalc;
  FrmEditCFG frmEditCFG;

  /// Names of the visible screens, front first.
  std::vector<std::string> Shown;
  FocusPlace Focus;
  std::string ConfigKnown;  ///< the configuration file as it was last read or written; "" for never
  std::string ConfigTried;  ///< what was last to be written into it: a write that failed late may have
  StoreNote Note;           ///< how the value that this event stores came to be
  std::string TypedAt;      ///< where the operator is typing, and what stood there before the first key
  std::string TypedBefore;
  long TypedStores = 0;   ///< `run.Stores` after the last key
  long StoresBefore = 0;  ///< `run.Stores` when the event began
  std::string Status;     ///< the status text
  std::string Warning;    ///< stands in front of it until its cause is mended
  /// Why the per-read log could not be written the last time; empty when it was.
  std::string LogTrouble;
  bool Ended = false;  ///< the program has ended: front ends stop
};

/// Calls visit(name, screen) for every screen.
template <class Program, class Visitor>
void VisitScreens(Program& kelp, Visitor&& visit) {
  visit("frmMain", kelp.frmMain);
  visit("frmLogin", kelp.frmLogin);
  visit("frmAcquire", kelp.frmAcquire);
  visit("frmCreateBase", kelp.frmCreateBase);
  visit("frmWhatsNext", kelp.frmWhatsNext);
  visit("frmProgress", kelp.frmProgress);
  visit("frmChangeStep", kelp.frmChangeStep);
  visit("dlgRunRem", kelp.dlgRunRem);
  visit("frmRecalc", kelp.frmRecalc);
  visit("frmEditCFG", kelp.frmEditCFG);
}

/// Calls visit(name, index, control) for every control of a screen; the index is -1 for one that is no member
/// of an array.
template <class Screen, class Visitor>
void VisitEach(Screen& screen, Visitor&& visit) {
  screen.VisitControls(screen, [&](std::string_view name, auto& control, int /*alias*/ = -1) {
    using Control = std::remove_cvref_t<decltype(control)>;
    if constexpr (requires { Control::kFirst; })
      for (int i = Control::kFirst; i <= Control::kLast; ++i) visit(name, i, control[i]);
    else
      visit(name, -1, control);
  });
}

/// The window of a screen by name, or null.
Window* FindWindow(Kelp& kelp, std::string_view screen);

/// Show a screen (it comes to the front), hide it, or bring it to the front; each by its own window, so that
/// no name can be wrong.
void ShowScreen(Kelp& kelp, Window& window);
void HideScreen(Kelp& kelp, Window& window);
void RaiseScreen(Kelp& kelp, Window& window);

/// Unloads a screen: it is hidden and its controls go back to what they are when it is loaded anew.
template <class Screen>
void UnloadScreen(Kelp& kelp, Screen& screen) {
  HideScreen(kelp, screen.Form);
  screen = Screen();
}

/// Sets the text of the status bar.
void SetStatus(Kelp& kelp, std::string_view text);

/// Sets, or with "" takes back, a warning that stays in front of every status text.
void SetWarning(Kelp& kelp, std::string_view warning);

/// Asks Yes/No (or Yes/No/Cancel); true for Yes only. No is the default under a critical icon.
bool AskYes(Kelp& kelp, const std::string& text, const std::string& title, Icon icon = Icon::None,
            Buttons buttons = Buttons::YesNo);

/// The same for a Yes that discards, overrides or leaves: the default is No.
bool AskRisky(Kelp& kelp, const std::string& text, const std::string& title, Icon icon = Icon::None,
              Buttons buttons = Buttons::YesNo);

/// The same with every field of the message in the caller's hand.
bool AskYes(Kelp& kelp, const Message& question);

/// Tells something with an OK button.
void Tell(Kelp& kelp, const std::string& text, const std::string& title = "", Icon icon = Icon::None);

/// Reports a run-time error in a message box that says what failed and where, and whether anything that is
/// stored has changed since the event began.
void ReportError(Kelp& kelp, const RunTimeError& error);

/// Ends the program: the port is left as it is, screens stay, front ends stop.
void EndProgram(Kelp& kelp);

}  // namespace kelp
