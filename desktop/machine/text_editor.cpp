// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/machine/text_editor.hpp"

#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>

#include "desktop/machine/paths.hpp"
#include "platform/error.hpp"

namespace kelp {

namespace {

constexpr std::string_view kNotepad = "notepad ";

// Text editors of the usual desktops. What a desktop opens a file with by its name's ending is no
// text editor for a ".csv" or ".htm", so that comes last.
QStringList SystemEditor() {
#ifdef Q_OS_WIN
  return {QStringLiteral("notepad")};
#else
  for (const char* name : {"gnome-text-editor", "gedit", "kate", "kwrite", "mousepad", "xed", "pluma",
                           "featherpad", "leafpad", "geany", "xdg-open"})
    if (const QString found = QStandardPaths::findExecutable(QLatin1String(name)); !found.isEmpty())
      return {found};
  return {};
#endif
}

}  // namespace

std::string LaunchEditor(const std::string& command, const QString& editor, const DriveMap& drives) {
  if (!command.starts_with(kNotepad)) return "\"" + command + "\" is no command for the text editor";
  QStringList words = editor.trimmed().isEmpty() ? SystemEditor() : QProcess::splitCommand(editor);
  if (words.isEmpty()) return "no text editor was found; name one in Machine settings";
  QString file;
  try {
    file = FromPath(drives.HostPath(command.substr(kNotepad.size())));
  } catch (const FileError& error) {
    return error.reason();
  }
  if (words.constFirst().endsWith(QLatin1String("xdg-open")) && !QFileInfo::exists(file))
    return "the file does not exist yet";
  const QString program = words.takeFirst();
  if (QProcess::startDetached(program, words << file)) return {};
  return "\"" + program.toStdString() + "\" could not be started; name another editor in Machine settings";
}

}  // namespace kelp
