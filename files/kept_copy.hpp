// SPDX-License-Identifier: GPL-3.0-or-later
// Kept copies of a base file: the file as it was before results were written over it.
#pragma once

#include <string>

#include "platform/disk.hpp"
#include "platform/platform.hpp"

namespace kelp {

/// The path of the station's base file, for the file itself or for a kept copy of it ("chl007Base",
/// "chl007Base11242026030000"). Only the file's name counts: a folder may be called "Base".
std::string StationPath(const std::string& path);

/// Keeps the base file as `path` & "Base". When such a copy exists it stays as it is, and this one takes
/// the time `now` behind its name, and a counter where that name exists too. Nothing happens when there
/// is no base file. Throws FileError, which names the copy.
void KeepBaseFile(Disk& disk, const std::string& path, LocalTime now);

/// Keeps a base file that holds results before a new one takes its place; the copy has the time behind its
/// name, so that the list of samples that "Reload Base File" reads stays. Nothing happens when there are
/// none.
void KeepResults(Disk& disk, const std::string& path, LocalTime now);

}  // namespace kelp
