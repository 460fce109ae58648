// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/door.hpp"

#include <optional>

#include "acquire/read_loop.hpp"
#include "app/clicks.hpp"
#include "app/focus.hpp"
#include "app/handlers.hpp"
#include "app/main_window.hpp"
#include "app/pasting.hpp"
#include "app/typing.hpp"
#include "core/captions.hpp"
#include "core/start_button.hpp"
#include "files/read_log.hpp"
#include "files/station_lock.hpp"
#include "record/record.hpp"
#include "workflow/log.hpp"
#include "workflow/steps.hpp"

namespace kelp {

namespace {

// Runs a handler; what goes wrong in it is reported, never silent, and never ends the program. The report
// may stay on the screen for hours: `before` is done first.
template <class Handler, class Before>
void Guarded(Kelp& kelp, const Handler& handler, const Before& before) {
  std::optional<RunTimeError> failure;
  kelp.StoresBefore = kelp.run.Stores;
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
      RunHandler(kelp, Doing::DblClick, event.Place);
      break;
    case EventKind::Key: PressKey(kelp, event.Place.Screen, event.Key); break;
    case EventKind::Edit: EditControl(kelp, event.Place, event.Text); break;
    case EventKind::Focus: MoveFocus(kelp, event.Place); break;
    case EventKind::Paste:
      SelectCell(kelp, event);
      PasteCells(kelp, event.Text);
      break;
    case EventKind::Escape: RunHandler(kelp, Doing::Escape, event.Place); break;
    case EventKind::SelectCell: SelectCell(kelp, event); break;
    case EventKind::Close: RunHandler(kelp, Doing::Close, event.Place); break;
  }
}

bool Logs(const Kelp& kelp) { return kelp.loop.Running && !IsPaused(kelp); }

// A value that is read: how many readings it is the mean of, and how far those lie apart.
StoreNote ReadNote(const Kelp& kelp, How way) {
  return {.Way = way, .Reads = kelp.run.ReadCount, .Sd = kelp.loop.Sd};
}

// How a value comes that this event stores, where its handler does not say that better.
StoreNote NoteOf(const Kelp& kelp, const Event& event) {
  How way = How::Typed;
  if (event.Kind == EventKind::Click)
    if (const HandlerRow* row = HandlerOf(Doing::Click, event.Place)) way = row->Way;
  if (event.Kind == EventKind::Key && event.Key == kKeySpace) way = How::Hand;
  if (event.Kind == EventKind::Key && event.Key == kKeyF1 + 4) way = How::F5;
  if (event.Kind == EventKind::Key && event.Key == kKeyF1 + 5) way = How::Calculated;
  if (event.Kind == EventKind::Key && event.Key == kKeyF1 + 6) way = How::F7;
  return way == How::Hand ? ReadNote(kelp, way) : StoreNote{.Way = way};
}

// What an event stored goes into the record; then the log's lines follow it to the disk, also when reading
// stops.
void After(Kelp& kelp, bool loggedBefore) {
  if (KeepRecord(kelp) || (loggedBefore && !Logs(kelp))) FlushReadLog(kelp);
  kelp.Ended ? ReleaseStation(kelp) : RefreshStationLock(kelp);
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
  const bool loggedBefore = Logs(kelp);
  BeginEvent(kelp, NoteOf(kelp, event));
  Guarded(
      kelp, [&] { Handle(kelp, event); }, [&] { After(kelp, loggedBefore); });
  return true;
}

bool WantsPasses(const Kelp& kelp) { return kelp.loop.Running && !IsPaused(kelp) && !kelp.Ended; }

void Pass(Kelp& kelp) {
  if (!WantsPasses(kelp)) return;
  std::string caption;
  const auto pass = [&] {
    if (!ReadPass(kelp)) return;
    caption = kelp.frmAcquire.Command1.Caption;
    SaveReading(kelp);
  };
  // Every save moves the button on; most passes save nothing and need no look at the station.
  const bool loggedBefore = Logs(kelp);
  BeginEvent(kelp, ReadNote(kelp, How::Autoread));
  Guarded(kelp, pass, [&] {
    const bool moved = !caption.empty() && kelp.frmAcquire.Command1.Caption != caption;
    if (moved || !WantsPasses(kelp)) After(kelp, loggedBefore);
  });
}

bool WantsCare(const Kelp& kelp) {
  return !kelp.Ended && (!kelp.StationLock.Path.empty() || kelp.record.Unsafe);
}

void Care(Kelp& kelp) {
  WriteRecord(kelp);
  RefreshStationLock(kelp);
}

bool WantsTicks(const Kelp& kelp) { return kelp.Timer1.Enabled && !IsPaused(kelp) && !kelp.Ended; }

void Tick(Kelp& kelp) {
  if (!WantsTicks(kelp)) return;
  // The log runs from the first click until the run stands on "&Start".
  if (kelp.frmAcquire.Command1.Caption == captions::kStart) {
    kelp.Timer1.Enabled = false;
    FlushReadLog(kelp);
    return;
  }
  Guarded(
      kelp, [&] { LogReading(kelp); }, [&] { Care(kelp); });
}

}  // namespace kelp
