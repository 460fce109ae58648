// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/machine/qt_platform.hpp"

#include <QEventLoop>
#include <exception>
#include <system_error>
#include <thread>

#include "desktop/machine/file_dialog.hpp"
#include "desktop/machine/message_box.hpp"
#include "desktop/machine/text_editor.hpp"
#include "platform/host.hpp"

namespace kelp {

Answer QtPlatform::Ask(const Message& message) {
  Question();
  const DialogTime dialog(Screens);
  return ShowMessage(Screens.Front(), message);
}

std::optional<std::string> QtPlatform::AskFile(const FileQuestion& question) {
  const DialogTime dialog(Screens);
  return AskForFile(Screens.Front(), question, drives_);
}

std::string QtPlatform::Launch(const std::string& command) { return LaunchEditor(command, editor_, drives_); }

void QtPlatform::ChoosePrinter() {
  const DialogTime dialog(Screens);
  if (const QString name = printer_.Choose(Screens.Front()); !name.isEmpty()) PrinterChosen(name);
}

void QtPlatform::EndDocument() {
  printer_.EndDocument([this](const Message& message) { return Ask(message); }, disk_, PdfPath());
}

// A share that takes a second for a flush is not to make the screen stand: it is drawn, while keys and clicks
// wait.
void QtPlatform::Aside(const std::function<void()>& work) {
  QEventLoop loop;
  std::exception_ptr failure;
  std::thread worker;
  try {
    worker = std::thread([&] {
      try {
        work();
      } catch (...) {
        failure = std::current_exception();
      }
      QMetaObject::invokeMethod(&loop, &QEventLoop::quit, Qt::QueuedConnection);
    });
  } catch (const std::system_error&) {  // no thread to be had: the value goes to the disk all the same
    return work();
  }
  loop.exec(QEventLoop::ExcludeUserInputEvents);
  worker.join();
  if (failure) std::rethrow_exception(failure);
}

std::string QtPlatform::MachineName() { return HostMachineName(); }

std::string QtPlatform::UserName() { return HostUserName(); }

LocalTime QtPlatform::Now() { return HostNow(); }

std::int64_t QtPlatform::Milliseconds() { return HostMilliseconds(); }

}  // namespace kelp
