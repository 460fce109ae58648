// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/machine/settings_dialog.hpp"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QScrollArea>
#include <QVBoxLayout>

#include "desktop/machine/message_box.hpp"
#include "desktop/machine/paths.hpp"
#include "desktop/machine/serial_ports.hpp"
#include "desktop/machine/settings_table.hpp"
#include "platform/host.hpp"
#include "platform/serial_line.hpp"

namespace kelp {

namespace {

constexpr int kWidth = 480;

template <class Clicked>
void AddButton(QLayout* layout, const QString& caption, QWidget* owner, const Clicked& clicked) {
  auto* button = new QPushButton(caption);
  button->setAutoDefault(false);
  QObject::connect(button, &QPushButton::clicked, owner, clicked);
  layout->addWidget(button);
}

bool IsLetter(const QString& key) { return key.size() == 1 && key.at(0) >= 'a' && key.at(0) <= 'z'; }

QString GivenText(const Options& options) {
  QStringList given;
  if (options.Drives) given << "all drives in " + FromPath(*options.Drives);
  for (const auto& [letter, folder] : options.Drive)
    given << QStringLiteral("drive %1 in %2").arg(QLatin1Char(letter)).arg(FromPath(folder));
  for (const auto& [port, device] : options.Ports)
    given << QStringLiteral("port %1 on %2").arg(port).arg(QString::fromStdString(device));
  return given.isEmpty() ? QString() : "Given on the command line, for this run: " + given.join(", ") + ".";
}

}  // namespace

SettingsDialog::SettingsDialog(QWidget* parent, const MachineSettings& settings, const Options& options,
                               bool simulate)
    : QDialog(parent), settings_(settings) {
  setWindowTitle(QStringLiteral("Machine settings"));
  auto* content = new QWidget;
  auto* layout = new QVBoxLayout(content);
  layout->addWidget(DrivesBox());
  layout->addWidget(PortsBox());
  layout->addWidget(EditorBox());
  auto* pair = new QHBoxLayout;
  pair->addWidget(SoundsBox());
  pair->addWidget(LookBox());
  layout->addLayout(pair);
  simulate_ = new QCheckBox(QStringLiteral("Read the &simulated fluorometer until the program ends"));
  simulate_->setChecked(simulate);
  layout->addWidget(simulate_);
  if (const QString given = GivenText(options); !given.isEmpty()) {
    auto* label = new QLabel(given);
    label->setWordWrap(true);
    layout->addWidget(label);
  }
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
  connect(buttons, &QDialogButtonBox::accepted, this, &SettingsDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &SettingsDialog::reject);

  for (const auto& [letter, folder] : settings.Drives) AddDrive(QString(QLatin1Char(letter)), folder);
  for (const auto& [port, device] : settings.Ports) AddPort(QString::number(port), device);
  editor_->setText(settings.Editor);
  preview_->setChecked(settings.Preview);
  scheme_->button(static_cast<int>(settings.Scheme))->setChecked(true);
  for (const auto& [cue, box] : sounds_) {
    box->setChecked(!settings.SoundsOff.contains(cue));
    connect(box, &QCheckBox::clicked, this, [this, cue = cue](bool on) {
      if (on) Hear(cue);
    });
  }
  FitToScreen(content, buttons);
}

// All of it where the screen has the room, else it scrolls above the buttons.
void SettingsDialog::FitToScreen(QWidget* content, QWidget* buttons) {
  auto* scroll = new QScrollArea;
  scroll->setFrameShape(QFrame::NoFrame);
  scroll->setWidgetResizable(true);
  scroll->setWidget(content);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(scroll);
  layout->addWidget(buttons);
  const QSize wanted = content->sizeHint().expandedTo({kWidth, 0}) + sizeHint() - scroll->sizeHint();
  resize(wanted.boundedTo(screen()->availableSize() * 9 / 10));
}

QWidget* SettingsDialog::DrivesBox() {
  auto* box = new QGroupBox(QStringLiteral("Drives"));
  auto* layout = new QVBoxLayout(box);
  auto* hint = new QLabel(WhereDrivesLie());
  hint->setWordWrap(true);
  layout->addWidget(hint);
  drives_ = MakeTable(QStringLiteral("Drives"), {QStringLiteral("Drive"), QStringLiteral("Folder")});
  layout->addWidget(drives_);
  auto* row = new QHBoxLayout;
  AddButton(row, QStringLiteral("Add &drive..."), this, [this] {
    AddDrive(drives_->rowCount() == 0 ? QStringLiteral("c") : QString(), QString());
    ChooseFolder();
  });
  AddButton(row, QStringLiteral("&Folder..."), this, [this] { ChooseFolder(); });
  AddButton(row, QStringLiteral("Remove d&rive"), this,
            [this] { drives_->removeRow(drives_->currentRow()); });
  row->addStretch();
  layout->addLayout(row);
  return box;
}

QWidget* SettingsDialog::PortsBox() {
  auto* box = new QGroupBox(QStringLiteral("Serial ports"));
  auto* layout = new QVBoxLayout(box);
  auto* hint =
      new QLabel(QStringLiteral("Line 09 of kelp.cfg names the port number. Port 1 is %1 unless listed.")
                     .arg(QString::fromStdString(HostPortDevice(1))));
  hint->setWordWrap(true);
  layout->addWidget(hint);
  ports_ = MakeTable(QStringLiteral("Serial ports"), {QStringLiteral("Port"), QStringLiteral("Device")});
  layout->addWidget(ports_);
  auto* row = new QHBoxLayout;
  AddButton(row, QStringLiteral("Add &port"), this,
            [this] { AddPort(QString::number(ports_->rowCount() + 1), QString()); });
  AddButton(row, QStringLiteral("Re&fresh"), this, [this] { FindPorts(); });
  AddButton(row, QStringLiteral("Remove p&ort"), this, [this] { ports_->removeRow(ports_->currentRow()); });
  row->addStretch();
  layout->addLayout(row);
  return box;
}

QWidget* SettingsDialog::EditorBox() {
  auto* box = new QGroupBox(QStringLiteral("Text editor"));
  auto* layout = new QHBoxLayout(box);
  editor_ = new QLineEdit;
  editor_->setObjectName(QStringLiteral("editor"));
  editor_->setAccessibleName(QStringLiteral("Text editor"));
  editor_->setPlaceholderText(QStringLiteral("The machine's text editor"));
  layout->addWidget(editor_);
  AddButton(layout, QStringLiteral("Bro&wse..."), this, [this] {
    const QString program = QFileDialog::getOpenFileName(this, QStringLiteral("Text editor"));
    // Quoted: what is typed here is a command with arguments.
    if (!program.isEmpty()) editor_->setText("\"" + program + "\"");
  });
  return box;
}

QWidget* SettingsDialog::LookBox() {
  auto* box = new QGroupBox(QStringLiteral("Screen and printer"));
  auto* layout = new QVBoxLayout(box);
  scheme_ = new QButtonGroup(box);
  const char* const names[] = {"Colours of the s&ystem", "&Light", "Dar&k"};
  for (int i = 0; i < 3; ++i) {
    auto* option = new QRadioButton(QLatin1String(names[i]));
    scheme_->addButton(option, i);
    layout->addWidget(option);
  }
  preview_ = new QCheckBox(QStringLiteral("Show reports &before printing"));
  layout->addWidget(preview_);
  layout->addStretch();
  return box;
}

QWidget* SettingsDialog::SoundsBox() {
  auto* box = new QGroupBox(QStringLiteral("Sounds (ticking one plays it)"));
  auto* layout = new QVBoxLayout(box);
  for (const Cue cue : kCues)
    layout->addWidget(sounds_[cue] = new QCheckBox(QString::fromLatin1(NameOf(cue))));
  layout->addStretch();
  return box;
}

void SettingsDialog::AddDrive(const QString& letter, const QString& folder) {
  const int row = drives_->rowCount();
  drives_->insertRow(row);
  drives_->setItem(row, 0, new QTableWidgetItem(letter));
  drives_->setItem(row, 1, new QTableWidgetItem(folder));
  drives_->setCurrentCell(row, 0);
}

void SettingsDialog::AddPort(const QString& number, const QString& device) {
  const int row = ports_->rowCount();
  ports_->insertRow(row);
  ports_->setItem(row, 0, new QTableWidgetItem(number));
  auto* combo = new QComboBox;
  combo->setEditable(true);
  combo->setAccessibleName("Device of port " + number);
  combo->addItems(SerialPortsFound());
  combo->setCurrentText(device);
  ports_->setCellWidget(row, 1, combo);
  ports_->setCurrentCell(row, 0);
}

void SettingsDialog::ChooseFolder() {
  const int row = drives_->currentRow();
  if (row < 0) return;
  const QString folder = QFileDialog::getExistingDirectory(this, QStringLiteral("Folder of the drive"),
                                                           CellText(*drives_, row, 1));
  if (!folder.isEmpty()) drives_->item(row, 1)->setText(folder);
}

// A cable plugged in while the dialog is open: the lists are made anew, what was chosen stays.
void SettingsDialog::FindPorts() {
  const QStringList found = SerialPortsFound();
  for (int row = 0; row < ports_->rowCount(); ++row) {
    auto* combo = qobject_cast<QComboBox*>(ports_->cellWidget(row, 1));
    const QString chosen = combo->currentText();
    combo->clear();
    combo->addItems(found);
    combo->setCurrentText(chosen);
  }
}

MachineSettings SettingsDialog::Settings() const {
  MachineSettings settings = settings_;
  settings.Drives.clear();
  settings.Ports.clear();
  for (int row = 0; row < drives_->rowCount(); ++row) {
    const QString letter = CellText(*drives_, row, 0).toLower();
    const QString folder = CellText(*drives_, row, 1);
    if (IsLetter(letter) && !folder.isEmpty()) settings.Drives[letter.at(0).toLatin1()] = folder;
  }
  for (int row = 0; row < ports_->rowCount(); ++row) {
    const int port = CellText(*ports_, row, 0).toInt();
    const QString device = CellText(*ports_, row, 1);
    if (port > 0 && !device.isEmpty()) settings.Ports[port] = device;
  }
  settings.Editor = editor_->text().trimmed();
  settings.Preview = preview_->isChecked();
  settings.Scheme = static_cast<SchemeChoice>(scheme_->checkedId());
  settings.SoundsOff.clear();
  for (const auto& [cue, sound] : sounds_)
    if (!sound->isChecked()) settings.SoundsOff.insert(cue);
  return settings;
}

QString SettingsDialog::Problem() const {
  QString drive = ColumnProblem(*drives_, QStringLiteral("drive letter"), IsLetter);
  if (!drive.isEmpty()) return drive;
  return ColumnProblem(*ports_, QStringLiteral("port number"),
                       [](const QString& key) { return key.toInt() > 0; });
}

void SettingsDialog::accept() {
  const QString problem = Problem();
  if (problem.isEmpty()) {
    QDialog::accept();
    return;
  }
  ShowMessage(
      this, {.Text = problem.toStdString(), .Title = windowTitle().toStdString(), .Icon = Icon::Exclamation});
}

}  // namespace kelp
