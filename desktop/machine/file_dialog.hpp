// SPDX-License-Identifier: GPL-3.0-or-later
// The file-open dialog: the operator picks a file on the host, the program gets its program path.
#pragma once

#include <QString>
#include <QWidget>
#include <optional>
#include <string>

#include "platform/drive_map.hpp"
#include "platform/platform.hpp"

namespace kelp {

/// The name filter of a question: "cfg Files (*.cfg)|*.cfg" becomes "cfg Files (*.cfg)".
QString NameFilter(const std::string& filter);

/// Asks for a file, starting in the question's folder or, when that is not there, on drive c. A file
/// that lies on no drive is refused with a message and the dialog comes up again. Nothing when the
/// operator gives up.
std::optional<std::string> AskForFile(QWidget* parent, const FileQuestion& question, const DriveMap& drives);

/// Asks for a folder in the same way. Nothing when the operator gives up, or chose one on no drive, which
/// is told.
std::optional<std::string> AskForFolder(QWidget* parent, const std::string& folder, const DriveMap& drives);

}  // namespace kelp
