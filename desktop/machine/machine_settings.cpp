// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/machine/machine_settings.hpp"

#include <QSettings>
#include <array>

#include "desktop/machine/paths.hpp"
#include "platform/error.hpp"
#include "platform/host.hpp"

namespace kelp {

namespace {

const QString kMaker = QStringLiteral("Kelp");
const QString kProgram = QStringLiteral("kelp");

constexpr std::array<const char*, 3> kSchemes = {"system", "light", "dark"};

SchemeChoice SchemeNamed(const QString& name) {
  for (std::size_t i = 0; i < kSchemes.size(); ++i)
    if (name == kSchemes[i]) return static_cast<SchemeChoice>(i);
  return SchemeChoice::System;
}

QString CueKey(Cue cue) { return QStringLiteral("sounds/%1").arg(static_cast<int>(cue)); }

void MakeFolders(const std::filesystem::path& folder) {
  std::error_code error;
  std::filesystem::create_directories(folder, error);
  if (error) throw FileError(FromPath(folder).toStdString(), "can't be made (" + error.message() + ")");
}

}  // namespace

bool SettingsAreKept() { return QSettings(kMaker, kProgram).contains(QStringLiteral("sound")); }

MachineSettings LoadSettings() {
  QSettings store(kMaker, kProgram);
  MachineSettings settings;
  store.beginGroup(QStringLiteral("drives"));
  for (const QString& key : store.childKeys()) {
    const char letter = key.size() == 1 ? key.at(0).toLower().toLatin1() : '\0';
    if (letter >= 'a' && letter <= 'z') settings.Drives[letter] = store.value(key).toString();
  }
  store.endGroup();
  store.beginGroup(QStringLiteral("ports"));
  for (const QString& key : store.childKeys())
    if (const int port = key.toInt(); port > 0) settings.Ports[port] = store.value(key).toString();
  store.endGroup();
  settings.Editor = store.value(QStringLiteral("editor")).toString();
  settings.Printer = store.value(QStringLiteral("printer")).toString();
  settings.Sound = store.value(QStringLiteral("sound"), true).toBool();
  for (const Cue cue : kCues)
    if (!store.value(CueKey(cue), true).toBool()) settings.SoundsOff.insert(cue);
  settings.Scheme = SchemeNamed(store.value(QStringLiteral("scheme")).toString());
  settings.Preview = store.value(QStringLiteral("preview"), true).toBool();
  return settings;
}

QString SaveSettings(const MachineSettings& settings) {
  QSettings store(kMaker, kProgram);
  store.remove(QStringLiteral("drives"));
  store.remove(QStringLiteral("ports"));
  for (const auto& [letter, folder] : settings.Drives)
    store.setValue(QStringLiteral("drives/") + QLatin1Char(letter), folder);
  for (const auto& [port, device] : settings.Ports)
    store.setValue(QStringLiteral("ports/%1").arg(port), device);
  store.setValue(QStringLiteral("editor"), settings.Editor);
  store.setValue(QStringLiteral("printer"), settings.Printer);
  store.setValue(QStringLiteral("sound"), settings.Sound);
  for (const Cue cue : kCues) store.setValue(CueKey(cue), !settings.SoundsOff.contains(cue));
  store.setValue(QStringLiteral("scheme"), kSchemes[static_cast<std::size_t>(settings.Scheme)]);
  store.setValue(QStringLiteral("preview"), settings.Preview);
  store.sync();
  if (store.status() == QSettings::NoError) return {};
  return store.fileName() + " can't be written: the machine settings hold only until the program ends";
}

QByteArray KeptGeometry() {
  return QSettings(kMaker, kProgram).value(QStringLiteral("geometry")).toByteArray();
}

void KeepGeometry(const QByteArray& geometry) {
  QSettings(kMaker, kProgram).setValue(QStringLiteral("geometry"), geometry);
}

DriveMap DrivesFor(const MachineSettings& settings, const Options& options) {
  const std::filesystem::path data = options.Drives ? *options.Drives : HostDataFolder();
  if (!data.empty()) MakeFolders(data);
  DriveMap drives(data);
  if (!options.Drives)
    for (const auto& [letter, folder] : settings.Drives) drives.SetDrive(letter, ToPath(folder));
  for (const auto& [letter, folder] : options.Drive) {
    MakeFolders(folder);
    drives.SetDrive(letter, std::filesystem::absolute(folder));
  }
  return drives;
}

QString WhereDrivesLie() try {
  const std::filesystem::path data = HostDataFolder();
  if (data.empty()) return QStringLiteral("A drive that is not listed is the machine's own.");
  return "A drive that is not listed lies in " + FromPath(data) + ": drive c is drive_c there.";
} catch (const FileError& error) {
  return QStringLiteral("A drive that is not listed has no place: ") + error.what();
}

std::string DeviceFor(int port, const MachineSettings& settings, const Options& options) {
  if (const auto given = options.Ports.find(port); given != options.Ports.end()) return given->second;
  if (const auto kept = settings.Ports.find(port); kept != settings.Ports.end())
    return kept->second.toStdString();
  return HostPortDevice(port);
}

}  // namespace kelp
