// Answers a modal dialog from inside its own event loop, as an operator would.
#pragma once

#include <QApplication>
#include <QDialog>
#include <QFileDialog>
#include <QLineEdit>
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

/// Types a file's name into the dialog and takes it.
inline void ChooseIn(QFileDialog& dialog, const QString& file) {
  dialog.findChild<QLineEdit*>("fileNameEdit")->setText(file);
  QMetaObject::invokeMethod(&dialog, "accept");
}

/// Waits, with the event loop running, until `condition` holds; false after five seconds.
inline bool Eventually(const std::function<bool()>& condition) { return QTest::qWaitFor(condition, 5000); }

}  // namespace kelp
