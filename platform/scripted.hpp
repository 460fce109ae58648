// SPDX-License-Identifier: GPL-3.0-or-later
// A platform that follows a script instead of a person and a machine: answers are queued, text is fed
// to the serial line, and time passes only when told. The console and the tests run on it. The report
// of an error or a failure asks nothing: it takes an "OK" if one is next, and needs none.
#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/platform.hpp"

namespace kelp {

/// Thrown when a message box or file dialog comes up and no answer waits. It is no std::exception, so
/// that no handler of the program takes it for an error of its own.
struct NoAnswer {
  std::string Question;
};

class ScriptedPlatform : public Platform {
 public:
  explicit ScriptedPlatform(Disk& disk) : disk_(disk) {}

  // What is to come.
  void QueueAnswer(Answer answer) { answers_.push_back(answer); }
  void QueueFile(std::optional<std::string> path) { files_.push_back(std::move(path)); }
  [[nodiscard]] std::size_t AnswersWaiting() const { return answers_.size(); }
  [[nodiscard]] std::size_t FilesWaiting() const { return files_.size(); }
  /// Text comes in on the serial line; it is lost while the line is unplugged.
  void Feed(std::string_view text) {
    if (lineUp_) line_ += text;
  }
  /// The line is unplugged: what was not read is lost, the port closes and can't be opened.
  void LineDown();
  void LineUp() { lineUp_ = true; }
  void SetPrinterWorks(bool works) { printerWorks_ = works; }
  void SetClock(LocalTime now) { start_ = now - std::chrono::seconds(Milliseconds() / 1000); }
  void Advance(std::int64_t milliseconds) { milliseconds_ += milliseconds; }

  /// Called with a line for each thing that the operator would see: message boxes, screens shown and
  /// hidden.
  std::function<void(const std::string&)> Echo;

  std::string Machine = "bench";
  std::string User = "analyst";

  // What happened.
  struct Box {
    Message message;
    Answer answer = Answer::Ok;
  };
  std::vector<Box> Boxes;
  std::vector<std::string> Printed;   ///< lines of the documents that were ended
  std::vector<std::string> Launched;  ///< commands
  int PrinterChoices = 0;
  /// Lines that the printer still takes before it fails; negative for any number.
  int PrinterTakes = -1;

  Disk& disk() override { return disk_; }
  std::string OpenPort(int number, const std::string& settings) override;
  void ClosePort() override { portOpen_ = false; }
  bool PortIsOpen() override { return portOpen_; }
  std::size_t BytesWaiting() override { return portOpen_ ? line_.size() : 0; }
  std::string ReadWaiting() override;
  Answer Ask(const Message& message) override;
  std::optional<std::string> AskFile(const FileQuestion& question) override;
  std::string Launch(const std::string& command) override;
  void ChoosePrinter() override { ++PrinterChoices; }
  void PrintLine(const std::string& line) override;
  void EndDocument() override;
  void ScreenShown(const std::string& screen) override { Say("screen " + screen + " shown"); }
  void ScreenHidden(const std::string& screen) override { Say("screen " + screen + " hidden"); }
  void ScreenRaised(const std::string& /*screen*/) override {}
  std::string MachineName() override { return Machine; }
  std::string UserName() override { return User; }
  bool TimeIsOwn() override { return true; }
  LocalTime Now() override { return start_ + std::chrono::seconds(Milliseconds() / 1000); }
  std::int64_t Milliseconds() override { return milliseconds_; }

 private:
  void Say(const std::string& line) const {
    if (Echo) Echo(line);
  }

  Disk& disk_;
  std::deque<Answer> answers_ = {};
  std::deque<std::optional<std::string>> files_ = {};
  std::string line_;
  bool portOpen_ = false;
  bool lineUp_ = true;
  bool printerWorks_ = true;
  std::vector<std::string> document_ = {};
  LocalTime start_{};
  std::int64_t milliseconds_ = 0;
};

/// "OK", "Cancel", "Yes", "No".
std::string_view AnswerName(Answer answer);

/// The buttons of a message box hold this answer.
bool Offers(Buttons buttons, Answer answer);

}  // namespace kelp
