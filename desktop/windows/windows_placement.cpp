// SPDX-License-Identifier: GPL-3.0-or-later
// Where windows come up, and keeping their places from one run of the program to the next.
#include <QDataStream>
#include <QIODevice>
#include <QScreen>
#include <QWindow>

#include "desktop/windows/frm_acquire.hpp"
#include "desktop/windows/look.hpp"
#include "desktop/windows/windows.hpp"

namespace kelp {

namespace {

constexpr int kTwipsPerPixel = 15;

// Windows that belong to a run stay in front of the acquisition screen.
bool BelongsToRun(const std::string& screen) {
  return screen != "frmMain" && screen != "frmAcquire" && screen != "frmEditCFG";
}

}  // namespace

// Where a window comes up: where it was the last time, else over the window in front.
void Windows::Place(ScreenWindow& window) {
  const std::string& screen = window.Screen();
  QWidget* owner = BelongsToRun(screen) && acquire_ != nullptr && acquire_->isVisible() ? acquire_ : nullptr;
  const Qt::WindowType type = owner == nullptr ? Qt::Window : Qt::Dialog;
  if (window.windowType() != type) window.setWindowFlags(type);
  window.winId();
  window.windowHandle()->setTransientParent(owner == nullptr ? nullptr : owner->windowHandle());
  if (const auto kept = geometry_.find(screen);
      kept != geometry_.end() && window.restoreGeometry(kept->second) && screen != "frmWhatsNext")
    return;
  const QRect space = (owner == nullptr ? window.screen() : owner->screen())->availableGeometry();
  QSize size = window.sizeHint();
  if (screen == "frmAcquire") size = size.expandedTo({space.width() * 9 / 10, space.height() * 9 / 10});
  if (screen != "frmWhatsNext" || !geometry_.contains(screen))
    window.resize(size.boundedTo(space.size() - QSize(8, 40)));
  QRect place(QPoint(), window.size());
  place.moveCenter(owner == nullptr ? space.center() : owner->geometry().center());
  if (screen == "frmWhatsNext") place.moveTopLeft(BesideReadings(place.size(), space));
  window.move(place.topLeft());
  if (screen == "frmAcquire" && space.height() < 900) window.setWindowState(Qt::WindowMaximized);
}

// The chooser asks whether the last Rb and Ra were written down: it never covers them. It stands left of the
// reading columns where there is room, else right of them.
QPoint Windows::BesideReadings(QSize size, const QRect& space) const {
  const int frame = 12;
  const int top = std::min(space.top() + kelp_.frmWhatsNext.Top / kTwipsPerPixel,
                           space.bottom() - size.height() - 3 * frame);
  if (acquire_ == nullptr) return {space.center().x() - size.width() / 2, top};
  const QRect readings = acquire_->ReadingColumns();
  const int left = readings.left() - size.width() - frame;
  if (left >= space.left()) return {left, top};
  const int right = std::min(readings.right() + frame, space.right() - size.width());
  return {right, top};
}

QByteArray Windows::Geometry() const {
  std::map<std::string, QByteArray> kept = geometry_;
  for (const auto& [name, window] : windows_)
    if (window->isVisible()) kept[name] = window->saveGeometry();
  QByteArray bytes;
  QDataStream stream(&bytes, QIODevice::WriteOnly);
  for (const auto& [name, geometry] : kept) stream << FromProgram(name) << geometry;
  return bytes;
}

void Windows::RestoreGeometry(const QByteArray& geometry) {
  QDataStream stream(geometry);
  while (!stream.atEnd() && stream.status() == QDataStream::Ok) {
    QString name;
    QByteArray kept;
    stream >> name >> kept;
    if (stream.status() == QDataStream::Ok) geometry_[ToProgram(name)] = kept;
  }
}

}  // namespace kelp
