// SPDX-License-Identifier: GPL-3.0-or-later
// Places on the host as Qt and the standard library name them.
#pragma once

#include <QString>
#include <filesystem>

namespace kelp {

inline QString FromPath(const std::filesystem::path& place) {
  return QString::fromStdU16String(place.u16string());
}

inline std::filesystem::path ToPath(const QString& place) { return {place.toStdU16String()}; }

}  // namespace kelp
