// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/machine/qt_platform.hpp"

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

std::string QtPlatform::MachineName() { return HostMachineName(); }

std::string QtPlatform::UserName() { return HostUserName(); }

LocalTime QtPlatform::Now() { return HostNow(); }

std::int64_t QtPlatform::Milliseconds() { return HostMilliseconds(); }

}  // namespace kelp
