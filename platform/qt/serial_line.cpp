// SPDX-License-Identifier: GPL-3.0-or-later
// The serial line over Qt's SerialPort.
#include "platform/serial_line.hpp"

#include <poll.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QFileInfo>
#include <QSerialPort>
#include <QSerialPortInfo>
#include <QSocketNotifier>
#include <cerrno>
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
  return ::poll(&look, 1, 0) > 0 && (look.revents & (POLLHUP | POLLERR | POLLNVAL)) != 0 &&
         (::ioctl(line, FIONREAD, &left) != 0 || left == 0);
}

}  // namespace

// Qt's object asks for an application before it is made. It opens the line and sets it; the bytes are read
// here: Qt 6.8 reads nothing from a line that hung up, again and again, and tells nobody.
struct SerialLine::Port {
  explicit Port(SerialLine& line) : Line(line) {}

  SerialLine& Line;
  QSerialPort Device;
  QSocketNotifier* Watch = nullptr;

  void HangUp() const;
  void Take(const char* bytes, qint64 count) const;
  void TakeBytes() const;
};

void SerialLine::Port::HangUp() const {
  Line.Close();
  if (Line.OnBytes) Line.OnBytes();
}

void SerialLine::Port::Take(const char* bytes, qint64 count) const {
  Line.Keep(bytes, static_cast<std::size_t>(count));
  if (Line.OnBytes) Line.OnBytes();
}

// What has come in, or that nothing will come any more.
void SerialLine::Port::TakeBytes() const {
  char bytes[4096];
  const int line = Device.handle();
  const ssize_t count = ::read(line, bytes, sizeof(bytes));
  if (count > 0) {
    Take(bytes, count);
  } else if ((count < 0 && errno != EAGAIN && errno != EINTR) || HasHungUp(line)) {
    HangUp();
  }
}

SerialLine::SerialLine() {
  NeedApplication();
  port_ = std::make_unique<Port>(*this);
  Port& port = *port_;
  // Its reader is off. Should a Qt to come read all the same, the reading is not lost.
  QObject::connect(&port.Device, &QSerialPort::readyRead, [&port] {
    const QByteArray bytes = port.Device.readAll();
    port.Take(bytes.constData(), bytes.size());
  });
  QObject::connect(&port.Device, &QSerialPort::errorOccurred, [&port](QSerialPort::SerialPortError error) {
    if (!IsHarmless(error) && port.Device.isOpen()) port.HangUp();
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
  // Qt's own reader is not needed.
  for (QSocketNotifier* reader : port.findChildren<QSocketNotifier*>()) reader->setEnabled(false);
  port_->Watch = new QSocketNotifier(port.handle(), QSocketNotifier::Read);
  QObject::connect(port_->Watch, &QSocketNotifier::activated, [this] { port_->TakeBytes(); });
  return {};
}

void SerialLine::Close() {
  if (port_->Watch != nullptr) {
    port_->Watch->setEnabled(false);
    port_->Watch->deleteLater();  // it may be the one that calls
    port_->Watch = nullptr;
  }
  if (port_->Device.isOpen()) port_->Device.close();
  waiting_.clear();
}

bool SerialLine::IsOpen() const { return port_->Device.isOpen(); }

bool SerialLine::WaitForBytes(int milliseconds) {
  if (!waiting_.empty()) return true;
  pollfd look{IsOpen() ? port_->Device.handle() : -1, POLLIN, 0};
  if (::poll(&look, 1, milliseconds) > 0) port_->TakeBytes();
  return !waiting_.empty();
}

std::vector<std::string> SerialDevices() {
  std::vector<std::string> devices;
  for (const QSerialPortInfo& port : QSerialPortInfo::availablePorts())
    devices.push_back(port.systemLocation().toStdString());
  return devices;
}

}  // namespace kelp
