// Files and stand-in programs on the host, for the desktop's tests.
#pragma once

#include <gtest/gtest.h>

#include <QFile>

namespace kelp {

inline void WriteFile(const QString& name, const QByteArray& content) {
  QFile file(name);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write(content);
}

inline QByteArray Content(const QString& name) {
  QFile file(name);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no such file)");
}

/// A program that runs shell commands, standing in for an editor or a sound player.
inline QString WriteProgram(const QString& name, const QByteArray& commands) {
  WriteFile(name, "#!/bin/sh\n" + commands + "\n");
  QFile::setPermissions(name, QFile::ReadOwner | QFile::ExeOwner);
  return name;
}

}  // namespace kelp
