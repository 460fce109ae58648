// SPDX-License-Identifier: GPL-3.0-or-later
// What this machine is like: where the drives lie, which device a port number is, the text editor,
// the printer, sound. Kept between runs; what the command line says holds for one run and is not
// kept.
#pragma once

#include <QByteArray>
#include <QString>
#include <map>
#include <set>
#include <string>

#include "app/cues.hpp"
#include "desktop/machine/command_line.hpp"
#include "desktop/windows/focus_style.hpp"
#include "platform/drive_map.hpp"

namespace kelp {

struct MachineSettings {
  std::map<char, QString> Drives = {};  ///< letter to folder; the others lie in the data folder
  std::map<int, QString> Ports = {};    ///< port number to device; the others are the machine's own
  QString Editor = {};                  ///< a command; empty for the machine's text editor
  QString Printer = {};                 ///< a name; empty for the machine's default printer
  bool Sound = true;
  std::set<Cue> SoundsOff = {};  ///< cues that are not wanted
  SchemeChoice Scheme = SchemeChoice::System;
  bool Preview = true;  ///< reports are shown before they are printed
};

/// True when settings were kept before: this is not the first start.
bool SettingsAreKept();

/// The settings kept. Entries that can't be (a drive "7", a port "x") are left out.
MachineSettings LoadSettings();

/// Keeps the settings. An empty text, or which file could not be written.
QString SaveSettings(const MachineSettings& settings);

/// Places and sizes of the windows; empty when none were kept.
QByteArray KeptGeometry();
void KeepGeometry(const QByteArray& geometry);

/// The drives of this run. Makes the folders that the command line names and the data folder; a folder
/// kept in the settings may lie on a disk that is not plugged in, and is not made. Throws FileError
/// when a folder can't be made.
DriveMap DrivesFor(const MachineSettings& settings, const Options& options);

/// Where a drive lies that the settings do not name, as a sentence.
QString WhereDrivesLie();

/// The device of a port number in this run.
std::string DeviceFor(int port, const MachineSettings& settings, const Options& options);

}  // namespace kelp
