// SPDX-License-Identifier: GPL-3.0-or-later
// The commands that set the scene: answers to come, the serial line, the printer, files.
#include "core/text.hpp"
#include "script/player.hpp"
#include "script/words.hpp"

namespace kelp {

namespace {

// "on"/"off" or "up"/"down": true for the first of the pair.
bool Switch(std::string_view rest, std::string_view on, std::string_view off) {
  const std::string_view word = TakeWord(rest);
  ExpectEnd(rest);
  if (word != on && word != off)
    ScriptIsWrong("\"" + std::string(word) + "\" is neither " + std::string(on) + " nor " + std::string(off));
  return word == on;
}

// Writes a line for a scene; the folder is made when it is missing.
void PutLine(ScriptedPlatform& machine, std::string_view rest, bool append) {
  const std::string path(TakeWord(rest));
  if (path.empty()) ScriptIsWrong("the path of a file is missing");
  const std::string line = std::string(rest) + "\r\n";
  Disk& disk = machine.disk();
  try {
    if (const auto folder = path.rfind('\\'); folder != std::string::npos && folder > 2)
      disk.MakeFolder(path.substr(0, folder));
    append ? disk.Append(path, line) : disk.Replace(path, line);
  } catch (const RunTimeError& error) {
    ScriptIsWrong(error.what());
  }
}

}  // namespace

void ScriptPlayer::SetAnswer(std::string_view rest) {
  const std::string_view word = TakeWord(rest);
  ExpectEnd(rest);
  for (const Answer answer : {Answer::Ok, Answer::Cancel, Answer::Yes, Answer::No}) {
    if (!SameIgnoringCase(word, AnswerName(answer))) continue;
    host_.machine().QueueAnswer(answer);
    return;
  }
  ScriptIsWrong("\"" + std::string(word) + "\" is no button: OK, Cancel, Yes or No");
}

void ScriptPlayer::SetFile(std::string_view rest) {
  if (rest.empty()) ScriptIsWrong("the path of a file is missing");
  host_.machine().QueueFile(rest == "none" ? std::nullopt : std::optional(std::string(rest)));
}

void ScriptPlayer::SetFeed(std::string_view rest) {
  const auto text = Unescaped(rest);
  if (!text) ScriptIsWrong("an escape is wrong; \\r, \\n, \\\\ and \\xHH can be used");
  if (!host_.LineIsScripted()) ScriptIsWrong("readings come from the device; \"feed\" can't make any");
  host_.machine().Feed(*text);
}

void ScriptPlayer::SetLine(std::string_view rest) {
  const bool up = Switch(rest, "up", "down");
  if (!host_.LineIsScripted()) ScriptIsWrong("readings come from the device; plug its cable by hand");
  up ? host_.machine().LineUp() : host_.machine().LineDown();
}

void ScriptPlayer::SetPrinter(std::string_view rest) {
  host_.machine().SetPrinterWorks(Switch(rest, "on", "off"));
}

void ScriptPlayer::WriteFile(std::string_view rest) { PutLine(host_.machine(), rest, false); }

void ScriptPlayer::AppendFile(std::string_view rest) { PutLine(host_.machine(), rest, true); }

}  // namespace kelp
