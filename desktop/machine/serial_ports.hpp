// SPDX-License-Identifier: GPL-3.0-or-later
// The serial ports that the machine has now.
#pragma once

#include <QStringList>

namespace kelp {

/// Their devices, such as "/dev/ttyUSB0".
QStringList SerialPortsFound();

}  // namespace kelp
