// SPDX-License-Identifier: GPL-3.0-or-later
#include "script/player.hpp"

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "core/text.hpp"
#include "platform/path_text.hpp"
#include "script/words.hpp"

namespace kelp {

namespace {
constexpr std::size_t kMostScripts = 16;
}  // namespace

// What sets the scene may stand before the program's start; all other commands start it.
struct ScriptPlayer::Command {
  std::string_view name;
  void (ScriptPlayer::*play)(std::string_view rest);
  bool setsScene = false;
};

const ScriptPlayer::Command ScriptPlayer::kCommands[] = {
    {"start", &ScriptPlayer::DoStart, true},
    {"click", &ScriptPlayer::DoClick},
    {"dblclick", &ScriptPlayer::DoDblClick},
    {"key", &ScriptPlayer::DoKey},
    {"focus", &ScriptPlayer::DoFocus},
    {"type", &ScriptPlayer::DoType},
    {"read", &ScriptPlayer::DoRead},
    {"run", &ScriptPlayer::DoRun},
    {"wait", &ScriptPlayer::DoWait},
    {"feed", &ScriptPlayer::SetFeed},
    {"line", &ScriptPlayer::SetLine},
    {"printer", &ScriptPlayer::SetPrinter},
    {"expect", &ScriptPlayer::Expect},
    {"show", &ScriptPlayer::Show},
    {"screens", &ScriptPlayer::ShowScreens},
    {"answer", &ScriptPlayer::SetAnswer, true},
    {"file", &ScriptPlayer::SetFile, true},
    {"write", &ScriptPlayer::WriteFile, true},
    {"append", &ScriptPlayer::AppendFile, true},
    {"include", &ScriptPlayer::Include, true},
};

ScriptResult ScriptPlayer::Play(const std::string& script, std::istream& input) {
  try {
    if (script == "-")
      PlayLines(script, input);
    else
      PlayFile(script);
    JudgeErrors();
  } catch (const ScriptFault& fault) {
    const bool atAct = fault.status == ScriptStatus::RunTimeError;
    const std::string where = atAct ? actedAt_ : scripts_.back() + ":" + std::to_string(line_);
    return {fault.status, where + ": " + Visible(fault.what)};
  }
  return {};
}

void ScriptPlayer::PlayFile(const std::string& script) {
  const bool outermost = scripts_.empty();
  if (outermost) scripts_.push_back(script);
  std::error_code error;
  std::ifstream file(PlaceOf(script), std::ios::binary);
  if (std::filesystem::is_directory(PlaceOf(script), error) || !file)
    ScriptIsWrong("the script \"" + script + "\" can't be read");
  if (outermost) scripts_.pop_back();
  PlayLines(script, file);
}

void ScriptPlayer::PlayLines(const std::string& script, std::istream& lines) {
  const int includedAt = line_;
  scripts_.push_back(script);
  std::string text;
  for (line_ = 1; std::getline(lines, text); ++line_) {
    std::string_view line = text;
    if (line_ == 1 && StartsWith(line, "\xEF\xBB\xBF")) line.remove_prefix(3);
    if (EndsWith(line, "\r")) line.remove_suffix(1);
    PlayLine(line);
  }
  if (scripts_.size() > 1) {
    scripts_.pop_back();
    line_ = includedAt;
  }
}

void ScriptPlayer::PlayLine(std::string_view line) {
  const std::string_view word = TakeWord(line);
  if (word.empty() || word.front() == '#') return;
  const auto command = std::find_if(std::begin(kCommands), std::end(kCommands),
                                    [&](const Command& candidate) { return candidate.name == word; });
  if (command == std::end(kCommands)) ScriptIsWrong("unknown command \"" + std::string(word) + "\"");
  if (host_.program().Ended) {
    JudgeErrors();
    ScriptIsWrong("the program has ended; no command can follow");
  }
  if (!command->setsScene) StartOnce();
  (this->*command->play)(line);
}

void ScriptPlayer::StartOnce() {
  if (started_) return;
  started_ = true;
  Act([this] { host_.Start(); });
}

void ScriptPlayer::Act(const std::function<void()>& work) {
  JudgeErrors();
  actedAt_ = scripts_.back() + ":" + std::to_string(line_);
  firstBox_ = host_.machine().Boxes.size();
  try {
    work();
  } catch (const NoAnswer& none) {
    throw ScriptFault{ScriptStatus::NoAnswer, "no answer waits for the " + none.Question};
  }
  if (!host_.program().Ended || endTold_) return;
  endTold_ = true;
  host_.Print("program ended");
}

void ScriptPlayer::JudgeErrors() const {
  const auto& boxes = host_.machine().Boxes;
  for (std::size_t i = firstBox_; i < boxes.size(); ++i)
    if (boxes[i].message.ReportsError && !(i < expected_.size() && expected_[i]))
      throw ScriptFault{ScriptStatus::RunTimeError,
                        "a run-time error was reported: " + boxes[i].message.Text};
}

void ScriptPlayer::Fail(const std::string& what) const {
  // An error that nobody expected is the cause, a failed expectation what came of it.
  JudgeErrors();
  throw ScriptFault{ScriptStatus::ExpectFailed, what};
}

void ScriptPlayer::Include(std::string_view rest) {
  const std::filesystem::path name = PlaceOf(rest);
  if (name.empty()) ScriptIsWrong("the name of a script is missing");
  if (scripts_.size() >= kMostScripts)
    ScriptIsWrong("scripts include each other more than " + std::to_string(kMostScripts) + " deep");
  std::filesystem::path folder = scripts_.back() == "-" ? "" : PlaceOf(scripts_.back()).parent_path();
  const std::string script = TextOf(folder / name);
  std::error_code error;
  for (const std::string& open : scripts_)
    if (open != "-" && std::filesystem::equivalent(PlaceOf(open), PlaceOf(script), error))
      ScriptIsWrong("the script \"" + script + "\" includes itself");
  PlayFile(script);
}

}  // namespace kelp
