// SPDX-License-Identifier: GPL-3.0-or-later
// What the program asks of the machine it runs on, as one narrow interface. The desktop and the
// console each bring their own; the tests use the scripted one.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "platform/disk.hpp"

namespace kelp {

enum class Buttons { Ok, OkCancel, YesNo, YesNoCancel };
enum class Icon { None, Exclamation, Critical };
enum class Answer { Ok, Cancel, Yes, No };

struct Message {
  std::string Text;
  std::string Title = {};
  kelp::Buttons Buttons = kelp::Buttons::Ok;
  kelp::Icon Icon = kelp::Icon::None;
  /// The report of a run-time error, and no question of the program's own.
  bool ReportsError = false;
  /// Tells of a failure that the program has dealt with: nothing is asked, and it is no run-time error.
  bool ReportsFailure = false;
  /// Yes discards, overrides or leaves: the button that Enter presses is No.
  bool DefaultNo = false;
};

/// A question for the file-open dialog: `Filter` is "Text|pattern" ("cfg Files (*.cfg)|*.cfg"),
/// `Folder` a program path or empty.
struct FileQuestion {
  std::string Filter;
  std::string Folder = {};
};

using LocalTime = std::chrono::local_seconds;

class Platform {
 public:
  virtual ~Platform() = default;

  virtual Disk& disk() = 0;

  /// Opens serial port `number` with settings such as "9600,n,8,1". Returns an empty text, or says
  /// why it could not be opened: the device, the reason, what to do.
  virtual std::string OpenPort(int number, const std::string& settings) = 0;
  virtual void ClosePort() = 0;
  /// False too after the line was lost: the platform closes the port at the first device error.
  virtual bool PortIsOpen() = 0;
  virtual std::size_t BytesWaiting() = 0;
  /// Takes everything that is waiting.
  virtual std::string ReadWaiting() = 0;

  /// Shows a modal message box and returns the button pressed. No pass of the read loop and no timer
  /// tick may run while it is open.
  virtual Answer Ask(const Message& message) = 0;
  /// Shows a modal file-open dialog; the program path chosen, or nothing.
  virtual std::optional<std::string> AskFile(const FileQuestion& question) = 0;

  /// Runs a command such as "notepad c:\kelp\x" (a text editor on a file) without waiting for it.
  /// Returns an empty text or says what failed.
  virtual std::string Launch(const std::string& command) = 0;

  /// Lets the operator choose a printer.
  virtual void ChoosePrinter() = 0;
  /// Adds a line to the current printer document. Throws FileError ("printer") when it fails.
  virtual void PrintLine(const std::string& line) = 0;
  /// Closes the document, so that what was printed is released to the printer. Nothing happens when
  /// nothing was printed. Throws FileError ("printer") when it fails.
  virtual void EndDocument() = 0;

  /// The screen with this name was shown, hidden, or brought to the front.
  virtual void ScreenShown(const std::string& screen) = 0;
  virtual void ScreenHidden(const std::string& screen) = 0;
  virtual void ScreenRaised(const std::string& screen) = 0;

  /// Does work that waits for a disk, and returns when it is done; what it throws is thrown here. A platform
  /// with windows keeps them alive meanwhile, but lets no handler, pass or tick run.
  virtual void Aside(const std::function<void()>& work) { work(); }

  /// The names of this machine and of who is logged in on it, for what other machines are told.
  virtual std::string MachineName() = 0;
  virtual std::string UserName() = 0;

  virtual LocalTime Now() = 0;
  /// True when time passes only as a script lets it: two plays of the script are then alike in everything.
  virtual bool TimeIsOwn() { return false; }
  /// A clock that never goes back, in milliseconds.
  virtual std::int64_t Milliseconds() = 0;
};

}  // namespace kelp
