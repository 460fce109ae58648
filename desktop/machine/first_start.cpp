// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/machine/first_start.hpp"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "acquire/parser.hpp"
#include "core/numbers.hpp"
#include "desktop/machine/paths.hpp"
#include "desktop/machine/serial_ports.hpp"
#include "platform/error.hpp"

namespace kelp {

namespace {

constexpr int kTestFor = 5000;  // milliseconds: a fluorometer sends about once a second
constexpr const char* kSettings = "9600,n,8,1";

QLabel* MakeText(const QString& text) {
  auto* label = new QLabel(text);
  label->setWordWrap(true);
  return label;
}

QString FolderOfC(const MachineSettings& settings, const Options& options) try {
  return FromPath(DrivesFor(settings, options).DriveFolder('c'));
} catch (const FileError&) {
  return {};
}

}  // namespace

FirstStart::FirstStart(const MachineSettings& settings, const Options& options)
    : settings_(settings),
      options_(options),
      folder_(FolderOfC(settings, options)),
      device_(QString::fromStdString(DeviceFor(1, settings, options))),
      line_([this](int) { return port_->currentText().trimmed().toStdString(); },
            [] { return std::string(); }) {
  setWindowTitle(QStringLiteral("Welcome to Kelp"));
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(
      MakeText(QStringLiteral("This is the first start on this machine. What is chosen here can be "
                              "changed in Machine settings at any time.")));
  layout->addWidget(FolderBox());
  layout->addWidget(InstrumentBox());
  auto* buttons = new QDialogButtonBox;
  buttons->addButton(QStringLiteral("&Start"), QDialogButtonBox::AcceptRole)->setDefault(true);
  const auto* more = buttons->addButton(QStringLiteral("&Machine settings..."), QDialogButtonBox::ActionRole);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(more, &QPushButton::clicked, this, [this] {
    wantsSettings_ = true;
    accept();
  });
  layout->addWidget(buttons);
  line_.OnBytes = [this] { TellTest(); };
  end_.setSingleShot(true);
  connect(&end_, &QTimer::timeout, this, [this] { TellTest(); });
  resize(sizeHint().expandedTo({560, 0}));
}

QWidget* FirstStart::FolderBox() {
  auto* box = new QGroupBox(QStringLiteral("Folder of drive c, where kelp.cfg lies"));
  auto* row = new QHBoxLayout;
  drive_ = new QLineEdit(folder_);
  drive_->setAccessibleName(box->title());
  auto* browse = new QPushButton(QStringLiteral("&Folder..."));
  browse->setAutoDefault(false);
  connect(browse, &QPushButton::clicked, this, [this] {
    const QString folder =
        QFileDialog::getExistingDirectory(this, QStringLiteral("Folder of drive c"), drive_->text());
    if (!folder.isEmpty()) drive_->setText(folder);
  });
  row->addWidget(drive_, 1);
  row->addWidget(browse);
  auto* layout = new QVBoxLayout(box);
  layout->addLayout(row);
  layout->addWidget(MakeText(WhereDrivesLie()));
  return box;
}

QWidget* FirstStart::InstrumentBox() {
  auto* box = new QGroupBox(QStringLiteral("Fluorometer"));
  auto* onPort = new QRadioButton(QStringLiteral("On the serial &port (number 1)"));
  simulate_ = new QRadioButton(QStringLiteral("S&imulated, to try the program without an instrument"));
  onPort->setChecked(true);
  port_ = new QComboBox;
  port_->setEditable(true);
  port_->setAccessibleName(QStringLiteral("Device of port 1"));
  port_->addItems(SerialPortsFound());
  port_->setCurrentText(device_);
  test_ = new QPushButton(QStringLiteral("&Test the port"));
  test_->setAutoDefault(false);
  connect(test_, &QPushButton::clicked, this, [this] { TestPort(); });
  told_ = MakeText(
      QStringLiteral("The test opens the port with %1 and waits five seconds for a reading.").arg(kSettings));
  told_->setMinimumHeight(told_->fontMetrics().lineSpacing() * 2);
  auto* row = new QHBoxLayout;
  row->addWidget(port_, 1);
  row->addWidget(test_);
  auto* layout = new QVBoxLayout(box);
  layout->addWidget(onPort);
  layout->addLayout(row);
  layout->addWidget(told_);
  layout->addWidget(simulate_);
  connect(onPort, &QRadioButton::toggled, this, [this](bool on) {
    port_->setEnabled(on);
    test_->setEnabled(on);
  });
  return box;
}

void FirstStart::TestPort() {
  came_.clear();
  const std::string trouble = line_.Open(1, kSettings);
  if (!trouble.empty()) {
    told_->setText(QString::fromStdString(trouble));
    return;
  }
  test_->setEnabled(false);
  told_->setText(QStringLiteral("The port is open; waiting for a reading..."));
  end_.start(kTestFor);
}

void FirstStart::TellTest() {
  came_ += line_.ReadAll();
  const bool reading = HoldsReading(came_);
  if (end_.isActive() && !reading && line_.IsOpen()) return;
  if (reading)
    told_->setText("The fluorometer reads " +
                   QString::fromStdString(RawText(static_cast<double>(ReadingIn(came_)))) + ".");
  else if (!line_.IsOpen())
    told_->setText(QStringLiteral("The line was lost. Look at the cable."));
  else if (came_.empty())
    told_->setText(QStringLiteral(
        "The port is open, but nothing came in. Look at cable and power, or choose another port."));
  else
    told_->setText(
        QStringLiteral(
            "%1 bytes came in, but no reading: the speed may be another one (line 10 of kelp.cfg).")
            .arg(came_.size()));
  end_.stop();
  line_.Close();
  test_->setEnabled(true);
}

MachineSettings FirstStart::Settings() const {
  MachineSettings settings = settings_;
  const QString folder = drive_->text().trimmed();
  if (!folder.isEmpty() && folder != folder_) settings.Drives['c'] = folder;
  const QString device = port_->currentText().trimmed();
  if (!device.isEmpty() && device != device_) settings.Ports[1] = device;
  return settings;
}

bool FirstStart::Simulate() const { return simulate_->isChecked(); }

}  // namespace kelp
