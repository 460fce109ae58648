// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/machine/script_machine.hpp"

#include <QAbstractButton>
#include <QTimer>
#include <utility>

#include "desktop/machine/message_box.hpp"

namespace kelp {

namespace {

Answer Harmless(Buttons buttons) {
  if (buttons == Buttons::Ok) return Answer::Ok;
  return buttons == Buttons::YesNo ? Answer::No : Answer::Cancel;
}

}  // namespace

Answer ScriptMachine::Ask(const Message& message) {
  Answer answer = Harmless(message.Buttons);
  try {
    answer = ScriptedPlatform::Ask(message);
  } catch (const NoAnswer& none) {
    if (!missing_) missing_ = none;
    return answer;
  }
  const DialogTime dialog(Screens);
  QMessageBox box(Screens.Front());
  SetUpBox(box, message);
  QTimer::singleShot(0, &box, [&] { ButtonOf(box, answer)->click(); });
  box.exec();
  return answer;
}

std::optional<std::string> ScriptMachine::AskFile(const FileQuestion& question) {
  try {
    return ScriptedPlatform::AskFile(question);
  } catch (const NoAnswer& none) {
    if (!missing_) missing_ = none;
    return std::nullopt;
  }
}

void ScriptMachine::TellMissingAnswer() {
  if (missing_) throw *std::exchange(missing_, std::nullopt);
}

void ScriptMachine::ScreenShown(const std::string& screen) {
  ScriptedPlatform::ScreenShown(screen);
  Screens.Shown(screen);
}

void ScriptMachine::ScreenHidden(const std::string& screen) {
  ScriptedPlatform::ScreenHidden(screen);
  Screens.Hidden(screen);
}

}  // namespace kelp
