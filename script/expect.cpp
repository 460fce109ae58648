// SPDX-License-Identifier: GPL-3.0-or-later
// The commands that look at what the operator sees.
#include "core/text.hpp"
#include "script/player.hpp"
#include "script/words.hpp"

namespace kelp {

void ScriptPlayer::Expect(std::string_view rest) {
  const std::string_view what = TakeWord(rest);
  if (what == "box") return ExpectBox(rest);
  if (what == "printed") return ExpectPrinted(rest);
  if (what == "error") return ExpectError(rest);
  const Target target = FindTarget(host_.program(), what);
  if (!TargetIs(host_.program(), target, rest))
    Fail(target.Name + " is \"" + TargetValue(host_.program(), target) + "\", expected \"" +
         std::string(rest) + "\"");
}

// Reports of run-time errors are left to `expect error`.
void ScriptPlayer::ExpectBox(std::string_view text) {
  const auto& boxes = host_.machine().Boxes;
  expected_.resize(boxes.size());
  for (std::size_t i = boxes.size(); i-- > 0;) {
    if (expected_[i] || boxes[i].message.ReportsError) continue;
    const std::string said = Visible(boxes[i].message.Text);
    // Some texts begin with a blank, which is easily left out.
    if (Trim(said) != Trim(text))
      Fail("the newest message box says \"" + said + "\", expected \"" + std::string(text) + "\"");
    expected_[i] = true;
    return;
  }
  Fail("no message box has come up, expected \"" + std::string(text) + "\"");
}

void ScriptPlayer::ExpectPrinted(std::string_view text) {
  for (const std::string& line : host_.machine().Printed)
    if (Visible(Trim(line)) == Trim(text)) return;
  Fail("no printed line is \"" + std::string(text) + "\" (" + std::to_string(host_.machine().Printed.size()) +
       " lines were printed)");
}

void ScriptPlayer::ExpectError(std::string_view name) {
  const auto& boxes = host_.machine().Boxes;
  expected_.resize(boxes.size());
  bool reported = false;
  for (std::size_t i = firstBox_; i < boxes.size(); ++i) {
    const Message& message = boxes[i].message;
    if (!message.ReportsError && !message.ReportsFailure) continue;
    if (message.Title != Trim(name)) continue;
    expected_[i] = true;
    reported = true;
  }
  if (!reported) Fail("the last command reported no run-time error \"" + std::string(name) + "\"");
}

void ScriptPlayer::Show(std::string_view rest) {
  const Target target = FindTarget(host_.program(), TakeWord(rest));
  ExpectEnd(rest);
  host_.Print(target.Name + " = " + Visible(TargetValue(host_.program(), target)));
}

void ScriptPlayer::ShowScreens(std::string_view rest) {
  ExpectEnd(rest);
  std::string names;
  for (const std::string& screen : host_.program().Shown) names += (names.empty() ? "" : " ") + screen;
  host_.Print(names);
}

}  // namespace kelp
