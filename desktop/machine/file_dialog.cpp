// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/machine/file_dialog.hpp"

#include <QDir>
#include <QFileDialog>
#include <QUrl>

#include "desktop/machine/message_box.hpp"
#include "desktop/machine/paths.hpp"
#include "platform/error.hpp"

namespace kelp {

namespace {

// The drives that have a folder on this machine, in the order of their letters.
QList<QUrl> DriveFolders(const DriveMap& drives) {
  QList<QUrl> folders;
  for (char letter = 'a'; letter <= 'z'; ++letter) {
    const QString folder = FromPath(drives.DriveFolder(letter));
    if (QDir(folder).exists()) folders << QUrl::fromLocalFile(folder);
  }
  return folders;
}

QString StartFolder(const std::string& folder, const DriveMap& drives) {
  try {
    const QString place = FromPath(drives.HostPath(folder));
    if (QDir(place).exists()) return place;
  } catch (const FileError&) {
    // A folder that names no place on the host: the operator starts on drive c and looks further.
  }
  return FromPath(drives.DriveFolder('c'));
}

std::optional<QString> Choose(QWidget* parent, const QString& filter, const QString& folder,
                              const DriveMap& drives) {
  QFileDialog dialog(parent, QFileDialog::tr("Open"), folder, filter);
  // The toolkit's own dialog finds "chl001" under the filter "Chl*" and can list the drives.
  dialog.setOption(QFileDialog::DontUseNativeDialog);
  dialog.setFileMode(QFileDialog::ExistingFile);
  dialog.setAcceptMode(QFileDialog::AcceptOpen);
  dialog.setSidebarUrls(DriveFolders(drives));
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
  return dialog.selectedFiles().constFirst();
}

void TellOnNoDrive(QWidget* parent, const QString& place, const std::string& choose, const DriveMap& drives) {
  ShowMessage(parent,
              {.Text = place.toStdString() + " lies on no drive of the program.\nDrive c is the folder " +
                       FromPath(drives.DriveFolder('c')).toStdString() + ".\n" + choose +
                       " there, or make its folder a drive in Machine settings.",
               .Title = "File on no drive",
               .Icon = Icon::Exclamation});
}

}  // namespace

QString NameFilter(const std::string& filter) {
  const QStringList parts = QString::fromStdString(filter).split('|');
  const QString text = parts[0].section('(', 0, 0).trimmed();
  const QString patterns = parts.size() > 1 ? parts[1] : QStringLiteral("*");
  return text + " (" + QString(patterns).replace(';', ' ') + ")";
}

std::optional<std::string> AskForFolder(QWidget* parent, const std::string& folder, const DriveMap& drives) {
  const QString chosen =
      QFileDialog::getExistingDirectory(parent, "Folder of the station files", StartFolder(folder, drives));
  if (chosen.isEmpty()) return std::nullopt;
  const auto path = drives.ProgramPath(ToPath(chosen));
  if (!path) TellOnNoDrive(parent, chosen, "Choose a folder", drives);
  return path;
}

std::optional<std::string> AskForFile(QWidget* parent, const FileQuestion& question, const DriveMap& drives) {
  const QString folder = StartFolder(question.Folder, drives);
  while (const auto chosen = Choose(parent, NameFilter(question.Filter), folder, drives)) {
    if (const auto path = drives.ProgramPath(ToPath(*chosen))) return path;
    TellOnNoDrive(parent, *chosen, "Choose a file", drives);
  }
  return std::nullopt;
}

}  // namespace kelp
