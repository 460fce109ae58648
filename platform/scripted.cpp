// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/scripted.hpp"

#include "platform/error.hpp"

namespace kelp {

namespace {

// A text as it stands between quotes in the echo: line breaks as "\n".
std::string Quoted(const std::string& text) {
  std::string quoted = "\"";
  for (const char c : text) quoted += c == '\n' ? std::string("\\n") : std::string(1, c);
  return quoted + "\"";
}

}  // namespace

std::string_view AnswerName(Answer answer) {
  switch (answer) {
    case Answer::Ok: return "OK";
    case Answer::Cancel: return "Cancel";
    case Answer::Yes: return "Yes";
    case Answer::No: return "No";
  }
  return "";
}

bool Offers(Buttons buttons, Answer answer) {
  switch (buttons) {
    case Buttons::Ok: return answer == Answer::Ok;
    case Buttons::OkCancel: return answer == Answer::Ok || answer == Answer::Cancel;
    case Buttons::YesNo: return answer == Answer::Yes || answer == Answer::No;
    case Buttons::YesNoCancel: return answer != Answer::Ok;
  }
  return false;
}

void ScriptedPlatform::LineDown() {
  lineUp_ = false;
  portOpen_ = false;
  line_.clear();
}

std::string ScriptedPlatform::OpenPort(int number, const std::string& /*settings*/) {
  if (!lineUp_) return "port " + std::to_string(number) + " is unplugged; plug the cable in again";
  portOpen_ = true;
  return {};
}

std::string ScriptedPlatform::ReadWaiting() {
  if (!portOpen_) return {};
  std::string text;
  text.swap(line_);
  return text;
}

Answer ScriptedPlatform::Ask(const Message& message) {
  Boxes.push_back({message});
  const std::string box = "box " + Quoted(message.Title) + " " + Quoted(message.Text);
  const bool fits = !answers_.empty() && Offers(message.Buttons, answers_.front());
  if (!fits && !message.ReportsError && !message.ReportsFailure) {
    Say(box + " -> no answer");
    const std::string next = answers_.empty() ? "" : std::string(AnswerName(answers_.front()));
    throw NoAnswer{"message box \"" + message.Text + "\"" +
                   (next.empty() ? "" : ": it has no button " + next + ", which is the answer queued next")};
  }
  if (fits) {
    Boxes.back().answer = answers_.front();
    answers_.pop_front();
  }
  Say(box + " -> " + std::string(AnswerName(Boxes.back().answer)));
  return Boxes.back().answer;
}

std::optional<std::string> ScriptedPlatform::AskFile(const FileQuestion& question) {
  if (files_.empty()) throw NoAnswer{"file dialog \"" + question.Filter + "\""};
  std::optional<std::string> file = std::move(files_.front());
  files_.pop_front();
  return file;
}

std::string ScriptedPlatform::Launch(const std::string& command) {
  Launched.push_back(command);
  return {};
}

void ScriptedPlatform::PrintLine(const std::string& line) {
  if (!printerWorks_ || PrinterTakes == 0)
    throw FileError("printer", "it does not answer; switch it on, then save again");
  if (PrinterTakes > 0) --PrinterTakes;
  document_.push_back(line);
}

void ScriptedPlatform::EndDocument() {
  std::vector<std::string> document;
  document.swap(document_);
  if (document.empty()) return;
  if (!printerWorks_) throw FileError("printer", "the document was lost; switch it on, then print again");
  Printed.insert(Printed.end(), document.begin(), document.end());
}

}  // namespace kelp
