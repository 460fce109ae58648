#include "platform/qt/serial_line.hpp"

#include <QCoreApplication>
#include <QFileInfo>
#include <QSerialPort>
#include <QThread>
#include <map>
#include <optional>
#include <sstream>

namespace kelp {

namespace {

constexpr std::size_t kKept = 64 << 10;

struct Settings {
  qint32 Baud = 0;
  QSerialPort::Parity Parity = QSerialPort::NoParity;
  QSerialPort::DataBits DataBits = QSerialPort::Data8;
  QSerialPort::StopBits StopBits = QSerialPort::OneStop;
};

std::optional<Settings> Parsed(const std::string& text) {
  static const std::map<char, QSerialPort::Parity> parities = {
      {'n', QSerialPort::NoParity},   {'e', QSerialPort::EvenParity},  {'o', QSerialPort::OddParity},
      {'m', QSerialPort::MarkParity}, {'s', QSerialPort::SpaceParity},
  };
  static const std::map<std::string, QSerialPort::StopBits> stops = {
      {"1", QSerialPort::OneStop}, {"1.5", QSerialPort::OneAndHalfStop}, {"2", QSerialPort::TwoStop}};
  std::istringstream in(text);
  Settings settings;
  char comma[3] = {};
  char parity = 0;
  int bits = 0;
  std::string stop, rest;
  in >> settings.Baud >> comma[0] >> parity >> comma[1] >> bits >> comma[2] >> stop;
  const bool whole = in && !(in >> rest) && std::string(comma, 3) == ",,,";
  const auto parityFound =
      parities.find(parity >= 'A' && parity <= 'Z' ? static_cast<char>(parity + 32) : parity);
  const auto stopFound = stops.find(stop);
  if (!whole || settings.Baud <= 0 || parityFound == parities.end() || bits < 5 || bits > 8 ||
      stopFound == stops.end())
    return std::nullopt;
  settings.Parity = parityFound->second;
  settings.DataBits = static_cast<QSerialPort::DataBits>(bits);
  settings.StopBits = stopFound->second;
  return settings;
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

}  // namespace

SerialLine::SerialLine() {
  NeedApplication();
  port_ = std::make_unique<QSerialPort>();
  QObject::connect(port_.get(), &QSerialPort::readyRead, [this] { TakeBytes(); });
  QObject::connect(port_.get(), &QSerialPort::errorOccurred, [this](QSerialPort::SerialPortError error) {
    if (IsHarmless(error) || !port_->isOpen()) return;
    Close();
    if (OnBytes) OnBytes();
  });
}

SerialLine::~SerialLine() { Close(); }

std::string SerialLine::Open(const std::string& device, const std::string& settings) {
  Close();
  if (device.empty()) return "this port number has no device; choose one";
  const auto parsed = Parsed(settings);
  if (!parsed)
    return device + " can't be opened with the settings \"" + settings +
           "\"; write baud rate, parity, data and stop bits as in 9600,n,8,1";
  port_->clearError();
  port_->setPortName(QString::fromStdString(device));
  port_->setBaudRate(parsed->Baud);
  port_->setParity(parsed->Parity);
  port_->setDataBits(parsed->DataBits);
  port_->setStopBits(parsed->StopBits);
  if (!port_->open(QIODevice::ReadOnly)) return Why(*port_, device);
  // Some instruments and most adapters talk only while these are up; a pseudo-terminal has neither.
  port_->setDataTerminalReady(true);
  port_->setRequestToSend(true);
  return {};
}

void SerialLine::Close() {
  if (port_->isOpen()) port_->close();
  waiting_.clear();
}

bool SerialLine::IsOpen() const { return port_->isOpen(); }

std::string SerialLine::ReadAll() {
  std::string text;
  text.swap(waiting_);
  return text;
}

void SerialLine::TakeBytes() {
  const QByteArray bytes = port_->readAll();
  waiting_.append(bytes.constData(), static_cast<std::size_t>(bytes.size()));
  if (waiting_.size() > kKept) {
    // Half a line would be read as another value: what is kept begins with a whole one.
    waiting_.erase(0, waiting_.size() - kKept);
    waiting_.erase(0, waiting_.find('\n') + 1);
  }
  if (OnBytes) OnBytes();
}

bool SerialLine::WaitForBytes(int milliseconds) {
  if (!waiting_.empty()) return true;
  if (IsOpen())
    port_->waitForReadyRead(milliseconds);
  else
    QThread::msleep(static_cast<unsigned long>(milliseconds));
  return !waiting_.empty();
}

}  // namespace kelp
