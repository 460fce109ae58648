// SPDX-License-Identifier: GPL-3.0-or-later
// A serial port of Windows: opened with its settings, or told why not.
#pragma once

#include <string>

#include "platform/serial_settings.hpp"
#include "platform/windows/handle.hpp"

namespace kelp {

/// Milliseconds after which a read that brings nothing ends, so that a port that is gone is noticed even
/// where its driver does not tell.
constexpr DWORD kReadEvery = 5000;

/// Opens a device such as "COM3" for overlapped `access` (GENERIC_READ, GENERIC_WRITE) by this program
/// alone. An empty text, or why it could not be opened and what to do.
std::string OpenSerialDevice(Handle& handle, const std::string& device, const SerialSettings& settings,
                             DWORD access);

/// Why a device could not be opened, in words that the operator can act on.
std::string WhyNotOpen(const std::string& device, DWORD error);

}  // namespace kelp
