// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/windows/keys.hpp"

#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>

#include "desktop/windows/grid_view.hpp"
#include "desktop/windows/value_widget.hpp"

namespace kelp {

namespace {

bool IsFunctionKey(const QKeyEvent& key) { return key.key() >= Qt::Key_F1 && key.key() <= Qt::Key_F12; }

bool IsEnter(const QKeyEvent& key) { return key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter; }

bool IsPlain(const QKeyEvent& key) { return (key.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier; }

bool IsDialog(const std::string& screen) {
  return screen != "frmMain" && screen != "frmAcquire" && screen != "frmProgress";
}

bool TakesCharacters(const QWidget& widget) {
  return qobject_cast<const QLineEdit*>(&widget) != nullptr ||
         qobject_cast<const QComboBox*>(&widget) != nullptr;
}

// Ctrl+Enter and Shift+Enter stand for the double click.
std::optional<Event> DoubleClick(const QWidget& focus, const FocusPlace& place) {
  if (const auto* grid = dynamic_cast<const GridView*>(&focus)) {
    const QModelIndex cell = grid->currentIndex();
    return Event{.Kind = EventKind::DblClick, .Place = place, .Row = cell.row() + 1, .Col = cell.column()};
  }
  if (place.Control == "Option1") return Event{.Kind = EventKind::DblClick, .Place = place};
  return {};
}

int CharacterOf(const QKeyEvent& key) {
  if (key.key() == Qt::Key_Backspace) return kKeyBackspace;
  const bool typed = (key.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) == Qt::NoModifier;
  const QString text = key.text();
  if (!typed || text.size() != 1) return 0;
  const char16_t character = text.front().unicode();
  return character >= 32 && character < 127 ? character : 0;
}

}  // namespace

bool IsProgramKey(const QKeyEvent& key) {
  return IsPlain(key) && (IsFunctionKey(key) || key.key() == Qt::Key_Space);
}

std::optional<Event> EventOfKey(const QKeyEvent& key, const QWidget& focus, const std::string& screen,
                                const FocusPlace* place) {
  const auto press = [&](int code) {
    return Event{.Kind = EventKind::Key, .Place = {screen, ""}, .Key = code};
  };
  if (IsPlain(key) && key.key() == Qt::Key_Escape && IsDialog(screen))
    return Event{.Kind = EventKind::Escape, .Place = {screen, ""}};
  // What was stored last is taken back, also where a box could take back a letter.
  if (key.matches(QKeySequence::Undo) && (screen == "frmAcquire" || screen == "frmWhatsNext"))
    return Event{.Kind = EventKind::Click, .Place = {"frmAcquire", "cmdUndo"}};
  if (IsPlain(key) && IsFunctionKey(key)) return press(kKeyF1 + key.key() - Qt::Key_F1);
  if (IsEnter(key) && !IsPlain(key)) return place == nullptr ? std::nullopt : DoubleClick(focus, *place);
  if (place == nullptr) return {};
  const auto* value = dynamic_cast<const ValueBox*>(&focus);
  const bool usable = value != nullptr && value->Usable();
  if (usable && (IsEnter(key) || key.key() == Qt::Key_Space))
    return Event{.Kind = EventKind::Click, .Place = *place};
  if (IsEnter(key)) return press(kKeyEnter);
  if (TakesCharacters(focus)) return {};
  if (dynamic_cast<const GridView*>(&focus) != nullptr) {
    const int character = CharacterOf(key);
    return character == 0 ? std::nullopt : std::optional(press(character));
  }
  if (IsPlain(key) && key.key() == Qt::Key_Space) return press(kKeySpace);
  return {};
}

}  // namespace kelp
