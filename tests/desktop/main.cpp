// SPDX-License-Identifier: GPL-3.0-or-later
// Runs the desktop's tests: on the offscreen platform unless told otherwise, with settings and drives of
// their own.
#include <gtest/gtest.h>

#include <QApplication>
#include <QTemporaryDir>

int main(int argc, char** argv) {
  const QTemporaryDir home;
  qputenv("XDG_CONFIG_HOME", home.filePath("config").toUtf8());
  qputenv("XDG_DATA_HOME", home.filePath("data").toUtf8());
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication app(argc, argv);
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
