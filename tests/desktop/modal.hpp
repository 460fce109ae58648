// SPDX-License-Identifier: GPL-3.0-or-later
// Answers a modal dialog from inside its own event loop, as an operator would; files for the tests.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QProcess>
#include <QTest>
#include <QTimer>
#include <functional>
#include <memory>

namespace kelp {

/// Calls `act` once with the next modal dialog of this kind that comes up.
template <class Dialog>
void WhenModal(const std::function<void(Dialog&)>& act) {
  auto* timer = new QTimer(qApp);
  QObject::connect(timer, &QTimer::timeout, timer, [timer, act] {
    auto* dialog = dynamic_cast<Dialog*>(QApplication::activeModalWidget());
    if (dialog == nullptr || !dialog->isActiveWindow()) return;
    timer->stop();
    timer->deleteLater();
    act(*dialog);
  });
  timer->start(10);
}

/// The widgets of a class of ours in a window; Qt's own search knows no such classes.
template <class Part>
std::vector<Part*> PartsOf(const QWidget& window) {
  std::vector<Part*> parts;
  for (QWidget* widget : window.findChildren<QWidget*>())
    if (auto* part = dynamic_cast<Part*>(widget)) parts.push_back(part);
  return parts;
}

/// Types a file's name into the dialog and takes it.
inline void ChooseIn(QFileDialog& dialog, const QString& file) {
  dialog.findChild<QLineEdit*>("fileNameEdit")->setText(file);
  QMetaObject::invokeMethod(&dialog, "accept");
}

/// Waits, with the event loop running, until `condition` holds; false after five seconds.
inline bool Eventually(const std::function<bool()>& condition) { return QTest::qWaitFor(condition, 5000); }

inline QByteArray Content(const QString& name) {
  QFile file(name);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no such file)");
}

inline void WriteFile(const QString& name, const QByteArray& content) {
  QFile file(name);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write(content);
}

/// The text of a PDF as it stands on the page.
inline QString PdfText(const QString& pdf) {
  QProcess reader;
  reader.start("pdftotext", {"-layout", pdf, "-"});
  reader.waitForFinished();
  return QString::fromUtf8(reader.readAllStandardOutput());
}

}  // namespace kelp
