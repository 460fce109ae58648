#include "desktop/machine/serial_ports.hpp"

#include <QSerialPortInfo>

namespace kelp {

QStringList SerialPortsFound() {
  QStringList devices;
  for (const QSerialPortInfo& port : QSerialPortInfo::availablePorts()) devices << port.systemLocation();
  return devices;
}

}  // namespace kelp
