// SPDX-License-Identifier: GPL-3.0-or-later
// The serial line over Qt's SerialPort.
#include "platform/serial_line.hpp"

#include <fcntl.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QFileInfo>
#include <QSerialPort>
#include <QSerialPortInfo>
#include <QSocketNotifier>
#include <QThread>
#include <map>

#include "platform/serial_settings.hpp"

namespace kelp {

namespace {

QSerialPort::Parity Parity(char letter) {
  static const std::map<char, QSerialPort::Parity> parities = {
      {'n', QSerialPort::NoParity},   {'e', QSerialPort::EvenParity},  {'o', QSerialPort::OddParity},
      {'m', QSerialPort::MarkParity}, {'s', QSerialPort::SpaceParity},
  };
  return parities.at(letter);
}

QSerialPort::StopBits Stop(StopBits bits) {
  return bits == StopBits::One   ? QSerialPort::OneStop
         : bits == StopBits::Two ? QSerialPort::TwoStop
                                 : QSerialPort::OneAndHalfStop;
}

// Qt's port asks for one, and a program without an event loop, such as the console, has none.
void NeedApplication() {
  static int count = 1;
  static char name[] = "kelp";
  static char* arguments[] = {name, nullptr};
  if (QCoreApplication::instance() == nullptr) static QCoreApplication application(count, arguments);
}

// Why a device could not be opened, in words that the operator can act on.
std::string Why(const QSerialPort& port, const std::string& device) {
  const QFileInfo file(QString::fromStdString(device));
  switch (port.error()) {
    case QSerialPort::DeviceNotFoundError:
      return device + " does not exist; plug the instrument's cable in or choose another device";
    case QSerialPort::PermissionError:
      if (!file.exists() || (file.isReadable() && file.isWritable()))
        return device + " is in use by another program; close that program";
      if (file.group().isEmpty() || file.group() == "root")
        return device + " may not be opened by this user; ask for the right to read and write it";
      return device + " may not be opened by this user; it needs the group " + file.group().toStdString() +
             " (sudo usermod -aG " + file.group().toStdString() + " $USER, then log in again)";
    default:
      return device + " can't be opened (" + port.errorString().toStdString() +
             "); check that it is a serial port, and its settings";
  }
}

// What leaves the line as usable as it was. All else, such as an unplugged cable, raises the same error
// again and again until the port is closed.
bool IsHarmless(QSerialPort::SerialPortError error) {
  return error == QSerialPort::NoError || error == QSerialPort::TimeoutError ||
         error == QSerialPort::UnsupportedOperationError || error == QSerialPort::NotOpenError;
}

// The other end is gone, and everything that came from it has been read.
bool HasHungUp(int line) {
  pollfd look{line, POLLIN, 0};
  int left = 0;
  return line >= 0 && ::poll(&look, 1, 0) > 0 && (look.revents & (POLLHUP | POLLERR | POLLNVAL)) != 0 &&
         (::ioctl(line, FIONREAD, &left) != 0 || left == 0);
}

void HangUp(SerialLine& line) {
  line.Close();
  if (line.OnBytes) line.OnBytes();
}

}  // namespace

// Qt's object asks for an application before it is made. Qt 6.8 reads nothing from a line that hung up, again
// and again, and tells nobody; so the line is watched by a second descriptor beside Qt's.
struct SerialLine::Port {
  QSerialPort Device;
  int Watched = -1;
  QSocketNotifier* Watch = nullptr;
};

SerialLine::SerialLine() {
  NeedApplication();
  port_ = std::make_unique<Port>();
  QSerialPort& device = port_->Device;
  QObject::connect(&device, &QSerialPort::readyRead, [this, &device] {
    const QByteArray bytes = device.readAll();
    Keep(bytes.constData(), static_cast<std::size_t>(bytes.size()));
    if (OnBytes) OnBytes();
  });
  QObject::connect(&device, &QSerialPort::errorOccurred, [this, &device](QSerialPort::SerialPortError error) {
    if (!IsHarmless(error) && device.isOpen()) HangUp(*this);
  });
}

SerialLine::~SerialLine() { Close(); }

std::string SerialLine::Open(const std::string& device, const std::string& settings) {
  Close();
  if (device.empty()) return "this port number has no device; choose one";
  const auto parsed = ReadSerialSettings(settings);
  if (!parsed) return WrongSerialSettings(device, settings);
  QSerialPort& port = port_->Device;
  port.clearError();
  port.setPortName(QString::fromStdString(device));
  port.setBaudRate(parsed->Baud);
  port.setParity(Parity(parsed->Parity));
  port.setDataBits(static_cast<QSerialPort::DataBits>(parsed->DataBits));
  port.setStopBits(Stop(parsed->Stop));
  if (!port.open(QIODevice::ReadOnly)) return Why(port, device);
  // Some instruments and most adapters talk only while these are up; a pseudo-terminal has neither.
  port.setDataTerminalReady(true);
  port.setRequestToSend(true);
  port_->Watched = ::fcntl(port.handle(), F_DUPFD_CLOEXEC, 0);
  port_->Watch = new QSocketNotifier(port_->Watched, QSocketNotifier::Read);
  QObject::connect(port_->Watch, &QSocketNotifier::activated, [this] {
    if (HasHungUp(port_->Watched)) HangUp(*this);
  });
  return {};
}

void SerialLine::Close() {
  if (port_->Watch != nullptr) {
    port_->Watch->setEnabled(false);
    port_->Watch->deleteLater();  // it may be the one that calls
    ::close(port_->Watched);
    port_->Watch = nullptr;
    port_->Watched = -1;
  }
  if (port_->Device.isOpen()) port_->Device.close();
  waiting_.clear();
}

bool SerialLine::IsOpen() const { return port_->Device.isOpen(); }

bool SerialLine::WaitForBytes(int milliseconds) {
  if (!waiting_.empty()) return true;
  if (!IsOpen())
    QThread::msleep(static_cast<unsigned long>(milliseconds));
  else if (!HasHungUp(port_->Watched))
    port_->Device.waitForReadyRead(milliseconds);
  if (HasHungUp(port_->Watched)) HangUp(*this);
  return !waiting_.empty();
}

std::vector<std::string> SerialDevices() {
  std::vector<std::string> devices;
  for (const QSerialPortInfo& port : QSerialPortInfo::availablePorts())
    devices.push_back(port.systemLocation().toStdString());
  return devices;
}

}  // namespace kelp
