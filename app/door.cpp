#include "app/door.hpp"

#include <optional>

#include "acquire/read_loop.hpp"
#include "app/clicks.hpp"
#include "app/focus.hpp"
#include "app/leaving.hpp"
#include "app/main_window.hpp"
#include "app/pasting.hpp"
#include "app/typing.hpp"
#include "files/journal.hpp"
#include "files/read_log.hpp"
#include "workflow/steps.hpp"

namespace kelp {

namespace {

// Runs a handler; what goes wrong in it is reported, never silent, and never ends the program. The report
// may stay on the screen for hours: `before` is done first.
template <class Handler, class Before>
void Guarded(Kelp& kelp, const Handler& handler, const Before& before) {
  std::optional<RunTimeError> failure;
  try {
    handler();
  } catch (const RunTimeError& error) {
    failure = error;
  } catch (const std::exception& error) {
    failure = RunTimeError(ErrorKind::InvalidCall, std::string("unexpected: ") + error.what());
  }
  before();
  if (failure) ReportError(kelp, *failure);
}

bool Paused(const Kelp& kelp) { return kelp.frmAcquire.Command2.Caption == "&Resume"; }

bool CanBeUsed(Kelp& kelp, const FocusPlace& place) {
  const Window* window = FindWindow(kelp, place.Screen);
  if (window == nullptr || !window->Visible) return false;
  return std::visit(
      [](const auto& control) {
        if constexpr (std::is_same_v<std::decay_t<decltype(control)>, std::monostate>)
          return false;
        else
          return control->Enabled && control->Visible;
      },
      ControlAt(kelp, place));
}

// A grid event names its cell, which becomes the current one.
void SelectCell(Kelp& kelp, const Event& event) {
  const ControlRef control = ControlAt(kelp, event.Place);
  const auto* grid = std::get_if<Grid*>(&control);
  if (grid == nullptr || event.Row <= 0) return;
  static_cast<void>((*grid)->At(event.Row, event.Col));
  (*grid)->Row = event.Row;
  (*grid)->Col = event.Col;
  MoveFocus(kelp, event.Place);
}

void Handle(Kelp& kelp, const Event& event) {
  switch (event.Kind) {
    case EventKind::Click: ClickControl(kelp, event.Place); break;
    case EventKind::DblClick:
      SelectCell(kelp, event);
      DblClickControl(kelp, event.Place);
      break;
    case EventKind::Key: PressKey(kelp, event.Place.Screen, event.Key); break;
    case EventKind::Edit: EditControl(kelp, event.Place, event.Text); break;
    case EventKind::Focus: MoveFocus(kelp, event.Place); break;
    case EventKind::Paste:
      SelectCell(kelp, event);
      PasteCells(kelp, event.Text);
      break;
    case EventKind::Escape: LeaveDialog(kelp, event.Place.Screen); break;
    case EventKind::SelectCell: SelectCell(kelp, event); break;
    case EventKind::Close: CloseWindow(kelp, event.Place.Screen); break;
  }
}

}  // namespace

void Start(Kelp& kelp) {
  Guarded(
      kelp, [&] { FrmMain_Load(kelp); }, [] {});
}

bool Post(Kelp& kelp, const Event& event) {
  if (kelp.Ended) return false;
  const bool forScreen =
      event.Kind == EventKind::Key || event.Kind == EventKind::Close || event.Kind == EventKind::Escape;
  if (forScreen) {
    const Window* window = FindWindow(kelp, event.Place.Screen);
    if (window == nullptr || !window->Visible) return false;
  } else if (!CanBeUsed(kelp, event.Place)) {
    return false;
  }
  Guarded(
      kelp, [&] { Handle(kelp, event); }, [&] { KeepJournal(kelp); });
  return true;
}

bool WantsPasses(const Kelp& kelp) { return kelp.loop.Running && !Paused(kelp) && !kelp.Ended; }

void Pass(Kelp& kelp) {
  if (!WantsPasses(kelp)) return;
  std::string caption;
  const auto pass = [&] {
    if (!ReadPass(kelp)) return;
    caption = kelp.frmAcquire.Command1.Caption;
    SaveReading(kelp);
  };
  // Every save moves the button on; most passes save nothing and need no look at the station.
  Guarded(kelp, pass, [&] {
    if (!caption.empty() && kelp.frmAcquire.Command1.Caption != caption) KeepJournal(kelp);
  });
}

bool WantsTicks(const Kelp& kelp) { return kelp.Timer1.Enabled && !Paused(kelp) && !kelp.Ended; }

void Tick(Kelp& kelp) {
  if (!WantsTicks(kelp)) return;
  // The log runs from the first click until the run stands on "&Start".
  if (kelp.frmAcquire.Command1.Caption == "&Start") {
    kelp.Timer1.Enabled = false;
    return;
  }
  Guarded(
      kelp, [&] { AppendReadLog(kelp); },
      [&] {
        if (kelp.journal.Failed) KeepJournal(kelp);
      });
}

}  // namespace kelp
