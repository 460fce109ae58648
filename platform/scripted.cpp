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
  if (answers_.empty()) {
    Say(box + " -> no answer");
    throw NoAnswer{message.Text};
  }
  const Answer answer = answers_.front();
  if (!Offers(message.Buttons, answer)) {
    Say(box + " -> no answer");
    throw NoAnswer{message.Text + " (it has no button " + std::string(AnswerName(answer)) + ")"};
  }
  answers_.pop_front();
  Boxes.back().answer = answer;
  Say(box + " -> " + std::string(AnswerName(answer)));
  return answer;
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
