// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/machine/sound.hpp"

#include <QApplication>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <cmath>
#include <cstdint>
#include <vector>

namespace kelp {

namespace {

constexpr int kRate = 22050;  // samples a second

void PutNumber(QByteArray& to, std::uint32_t number, int bytes) {
  for (int i = 0; i < bytes; ++i) to += static_cast<char>((number >> (8 * i)) & 0xFFU);
}

// 16-bit mono samples; each tone fades in and out, else it clicks.
QByteArray Samples(const std::vector<Tone>& tones) {
  QByteArray samples;
  for (const Tone& tone : tones) {
    const int count = static_cast<int>(tone.Seconds * kRate);
    for (int i = 0; i < count; ++i) {
      const double at = static_cast<double>(i) / kRate;
      const double fade = std::sin(3.14159265 * i / count);
      const double level = 14000 * fade * std::sin(2 * 3.14159265 * tone.Hertz * at);
      PutNumber(samples, static_cast<std::uint32_t>(static_cast<std::int32_t>(level)), 2);
    }
  }
  return samples;
}

QByteArray WavOf(Cue cue) {
  const QByteArray samples = Samples(TonesOf(cue));
  const auto size = static_cast<std::uint32_t>(samples.size());
  QByteArray wav("RIFF");
  PutNumber(wav, 36 + size, 4);
  wav += "WAVEfmt ";
  PutNumber(wav, 16, 4);
  PutNumber(wav, 1, 2);  // plain samples
  PutNumber(wav, 1, 2);  // one channel
  PutNumber(wav, kRate, 4);
  PutNumber(wav, kRate * 2, 4);
  PutNumber(wav, 2, 2);
  PutNumber(wav, 16, 2);
  wav += "data";
  PutNumber(wav, size, 4);
  return wav + samples;
}

QString Player() {
  for (const char* name : {"pw-play", "paplay", "aplay"})
    if (const QString found = QStandardPaths::findExecutable(QLatin1String(name)); !found.isEmpty())
      return found;
  return {};
}

}  // namespace

QString Sound::FileOf(Cue cue) {
  if (!folder_) folder_ = std::make_unique<QTemporaryDir>();
  static const char* const names[] = {"can-save.wav", "saved.wav", "acid.wav", "question.wav", "alarm.wav"};
  const QString name = folder_->filePath(QLatin1String(names[static_cast<std::size_t>(cue)]));
  if (QFile::exists(name)) return name;
  QFile file(name);
  const QByteArray wav = WavOf(cue);
  if (!file.open(QIODevice::WriteOnly) || file.write(wav) != wav.size()) return {};
  return name;
}

void Sound::Play(Cue cue) {
  if (!On || Off.contains(cue)) return;
  PlayNow(cue);
}

void Sound::PlayNow(Cue cue) {
  if (!player_) player_ = Player();
  if (!player_->isEmpty()) {
    QProcess process;
    process.setProgram(*player_);
    process.setArguments({FileOf(cue)});
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    if (process.startDetached()) return;
  }
  QApplication::beep();
}

}  // namespace kelp
