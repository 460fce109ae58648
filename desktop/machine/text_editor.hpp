// SPDX-License-Identifier: GPL-3.0-or-later
// The text editor of the machine, which the program calls "notepad".
#pragma once

#include <QString>
#include <string>

#include "platform/drive_map.hpp"

namespace kelp {

/// Opens the file of a command such as "notepad c:\kelp\x" in a text editor without waiting for it.
/// `editor` is a command with its arguments, or empty for the first text editor that the machine has.
/// Returns an empty text or says what failed and what to do.
std::string LaunchEditor(const std::string& command, const QString& editor, const DriveMap& drives);

}  // namespace kelp
