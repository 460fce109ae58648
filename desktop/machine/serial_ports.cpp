// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/machine/serial_ports.hpp"

#include "platform/serial_line.hpp"

namespace kelp {

QStringList SerialPortsFound() {
  QStringList devices;
  for (const std::string& device : SerialDevices()) devices << QString::fromStdString(device);
  return devices;
}

}  // namespace kelp
