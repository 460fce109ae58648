// SPDX-License-Identifier: GPL-3.0-or-later
// Plays an operator script, one command a line: does to the screens what an operator would do and
// checks what the operator would see. Where it plays is the host's business.
#pragma once

#include <istream>
#include <string>
#include <string_view>
#include <vector>

#include "script/failure.hpp"
#include "script/host.hpp"
#include "script/target.hpp"

namespace kelp {

class ScriptPlayer {
 public:
  explicit ScriptPlayer(ScriptHost& host) : host_(host) {}

  /// Plays a script file, or `input` for the name "-", to its end or its first failure. May be called
  /// once.
  ScriptResult Play(const std::string& script, std::istream& input);

 private:
  struct Command;
  static const Command kCommands[];

  // Files, lines and errors (script_player.cpp).
  void PlayFile(const std::string& script);
  void PlayLines(const std::string& script, std::istream& lines);
  void PlayLine(std::string_view line);

  /// Runs a command that acts on the program. The errors that the one before it reported must have been
  /// expected by now.
  void Act(const std::function<void()>& work);
  void StartOnce();
  void JudgeErrors() const;
  /// Ends the script: what it expected is not so.
  [[noreturn]] void Fail(const std::string& what) const;

  // Commands: what an operator does (script_do.cpp).
  void DoStart(std::string_view rest);
  void DoClick(std::string_view rest);
  void DoDblClick(std::string_view rest);
  void DoKey(std::string_view rest);
  void DoFocus(std::string_view rest);
  void DoType(std::string_view rest);
  void DoRead(std::string_view rest);
  void DoRun(std::string_view rest);
  void DoWait(std::string_view rest);
  void PostTo(const Target& target, Event event);
  void TypeIntoCell(const Target& target, std::string_view text);
  void TypeIntoBox(const Target& target, std::string_view text);

  // Commands: the scene (script_scene.cpp).
  void SetAnswer(std::string_view rest);
  void SetFile(std::string_view rest);
  void SetFeed(std::string_view rest);
  void SetLine(std::string_view rest);
  void SetPrinter(std::string_view rest);
  void WriteFile(std::string_view rest);
  void AppendFile(std::string_view rest);
  void Include(std::string_view rest);

  // Commands: what the operator sees (script_expect.cpp).
  void Expect(std::string_view rest);
  void ExpectBox(std::string_view text);
  void ExpectPrinted(std::string_view text);
  void ExpectError(std::string_view name);
  void Show(std::string_view rest);
  void ShowScreens(std::string_view rest);

  ScriptHost& host_;
  std::vector<std::string> scripts_ = {};  ///< the scripts being played, outermost first
  int line_ = 0;                           ///< of the innermost script
  bool started_ = false;
  bool endTold_ = false;
  std::string actedAt_;              ///< "SCRIPT:LINE" of the last command that acted on the program
  std::size_t firstBox_ = 0;         ///< the first message box of that command
  std::vector<bool> expected_ = {};  ///< the message boxes that were expected, by their number
};

}  // namespace kelp
