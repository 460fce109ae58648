// SPDX-License-Identifier: GPL-3.0-or-later
// The commands that do to the screens what an operator would do, and let time pass.
#include "acquire/instrument_line.hpp"
#include "app/focus.hpp"
#include "core/text.hpp"
#include "script/player.hpp"
#include "script/words.hpp"

namespace kelp {

namespace {

constexpr std::int64_t kSecond = 1000;

int KeyNamed(std::string_view name) {
  if (name.size() == 1) return static_cast<unsigned char>(name.front());
  if (SameIgnoringCase(name, "Space")) return kKeySpace;
  if (SameIgnoringCase(name, "Enter")) return kKeyEnter;
  if (SameIgnoringCase(name, "Backspace")) return kKeyBackspace;
  if (SameIgnoringCase(name, "Tab")) return kKeyTab;
  for (int number = 1; number <= 12; ++number)
    if (SameIgnoringCase(name, "F" + std::to_string(number))) return kKeyF1 + number - 1;
  ScriptIsWrong("\"" + std::string(name) +
                "\" is no key: F1 to F12, Space, Enter, Backspace, Tab or one character");
}

Event KeyEvent(const std::string& screen, int key) {
  Event event;
  event.Kind = EventKind::Key;
  event.Place.Screen = screen;
  event.Key = key;
  return event;
}

// Why an operator could not reach a control.
std::string WhyNot(Kelp& kelp, const Target& target) {
  if (!FindWindow(kelp, target.Place.Screen)->Visible)
    return "the screen " + target.Place.Screen + " is not on the display";
  return target.Name + " is not there or not enabled";
}

}  // namespace

void ScriptPlayer::PostTo(const Target& target, Event event) {
  event.Place = target.Place;
  if (target.IsCell()) {
    event.Row = *target.Index.First;
    event.Col = *target.Index.Second;
  }
  if (!host_.Post(event)) ScriptIsWrong("an operator can't do this: " + WhyNot(host_.program(), target));
}

void ScriptPlayer::DoStart(std::string_view rest) {
  ExpectEnd(rest);
  StartOnce();
}

void ScriptPlayer::DoClick(std::string_view rest) {
  const Target target = FindControlTarget(host_.program(), TakeWord(rest));
  ExpectEnd(rest);
  Act([&] { PostTo(target, {.Kind = target.IsCell() ? EventKind::SelectCell : EventKind::Click}); });
}

void ScriptPlayer::DoDblClick(std::string_view rest) {
  const Target target = FindControlTarget(host_.program(), TakeWord(rest));
  ExpectEnd(rest);
  Act([&] { PostTo(target, {.Kind = EventKind::DblClick}); });
}

void ScriptPlayer::DoFocus(std::string_view rest) {
  const Target target = FindControlTarget(host_.program(), TakeWord(rest));
  ExpectEnd(rest);
  Act([&] { PostTo(target, {.Kind = target.IsCell() ? EventKind::SelectCell : EventKind::Focus}); });
}

void ScriptPlayer::DoKey(std::string_view rest) {
  const std::string screen(TakeWord(rest));
  const int key = KeyNamed(TakeWord(rest));
  ExpectEnd(rest);
  if (FindWindow(host_.program(), screen) == nullptr) ScriptIsWrong("there is no screen \"" + screen + "\"");
  Act([&] {
    if (!host_.Post(KeyEvent(screen, key)))
      ScriptIsWrong("an operator can't do this: the screen " + screen + " is not on the display");
  });
}

void ScriptPlayer::DoType(std::string_view rest) {
  const Target target = FindControlTarget(host_.program(), TakeWord(rest));
  const ControlRef control = ControlAt(host_.program(), target.Place);
  if (!TakesText(control)) ScriptIsWrong("no text can be typed into " + target.Name);
  if (std::holds_alternative<Grid*>(control) && !target.IsCell())
    ScriptIsWrong("name a cell of the grid, such as datalog(1,3)");
  Act([&] { target.IsCell() ? TypeIntoCell(target, rest) : TypeIntoBox(target, rest); });
}

void ScriptPlayer::TypeIntoCell(const Target& target, std::string_view text) {
  PostTo(target, {.Kind = EventKind::SelectCell});
  const auto press = [&](int key) { host_.Post(KeyEvent(target.Place.Screen, key)); };
  for (std::size_t left = TargetValue(host_.program(), target).size(); left > 0; --left) press(kKeyBackspace);
  for (const char c : text) press(static_cast<unsigned char>(c));
}

// The old text is marked and typed over, a change for each key, and the box is left. On the acquisition
// screen the focus goes back to the button that goes on, as after Enter, so that the space bar means
// Start again; on other screens it goes to the next control.
void ScriptPlayer::TypeIntoBox(const Target& target, std::string_view text) {
  PostTo(target, {.Kind = EventKind::Focus});
  Event edit;
  edit.Kind = EventKind::Edit;
  for (std::size_t length = 0; length <= text.size(); ++length) {
    edit.Text = text.substr(0, length);
    PostTo(target, edit);
  }
  Event leave = KeyEvent(target.Place.Screen, kKeyTab);
  if (target.Place.Screen == "frmAcquire") {
    leave.Kind = EventKind::Focus;
    leave.Place.Control = "Command1";
  }
  host_.Post(leave);
}

void ScriptPlayer::DoRead(std::string_view rest) {
  const std::string value(TakeWord(rest));
  const std::string_view times = TakeWord(rest);
  const int count = times.empty() ? 1 : CountIn(times);
  ExpectEnd(rest);
  if (value.empty()) ScriptIsWrong("the value to read is missing");
  if (!host_.LineIsScripted()) ScriptIsWrong("readings come from the device; \"read\" can't make any");
  Act([&] {
    for (int i = 0; i < count && !host_.program().Ended; ++i) {
      host_.machine().Feed(InstrumentLine(value));
      host_.Let(kSecond, {});
    }
  });
}

void ScriptPlayer::DoRun(std::string_view rest) {
  const long long milliseconds = MillisecondsIn(TakeWord(rest));
  ExpectEnd(rest);
  Act([&] { host_.Let(milliseconds, {}); });
}

void ScriptPlayer::DoWait(std::string_view rest) {
  const std::string_view seconds = TakeWord(rest);
  const long long milliseconds = MillisecondsIn(seconds);
  const Target target = FindTarget(host_.program(), TakeWord(rest));
  Act([&] {
    const auto reached = [&] { return TargetIs(host_.program(), target, rest); };
    if (host_.Let(milliseconds, reached)) return;
    Fail(target.Name + " is \"" + TargetValue(host_.program(), target) + "\" after " + std::string(seconds) +
         " s, waited for \"" + std::string(rest) + "\"");
  });
}

}  // namespace kelp
