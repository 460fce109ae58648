// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/review/picture_view.hpp"

#include <QDir>
#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>

#include "desktop/review/picture_painter.hpp"
#include "desktop/windows/look.hpp"

namespace kelp {

namespace {

constexpr int kEdge = 4;

// A title as the name of a file.
QString FileNameOf(const Picture& picture) {
  QString name = QString::fromStdString(picture.Title);
  for (QChar& c : name)
    if (!c.isLetterOrNumber() && c != '-' && c != '.') c = '_';
  return name + ".pdf";
}

}  // namespace

PictureView::PictureView(QWidget* parent) : QWidget(parent), export_(new QPushButton("E&xport...", this)) {
  setMinimumSize(280, 240);
  export_->setToolTip("Writes this picture as SVG, PDF or PNG");
  export_->hide();
  QObject::connect(export_, &QPushButton::clicked, this, [this] { Export(); });
}

void PictureView::Show(const Picture& picture) {
  picture_ = picture;
  setAccessibleName(QString::fromStdString(picture.Title));
  export_->show();
  update();
}

void PictureView::Clear() {
  picture_.reset();
  export_->hide();
  update();
}

void PictureView::resizeEvent(QResizeEvent* /*event*/) {
  export_->adjustSize();
  export_->move(width() - export_->width() - kEdge, height() - export_->height() - kEdge);
}

void PictureView::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  if (!picture_) return;
  const QRectF room = QRectF(rect()).adjusted(0, 0, 0, -export_->height() - 2 * kEdge);
  PaintPicture(painter, *picture_, room, IsDark(palette()) ? kDarkPalette : kLightPalette);
}

void PictureView::Export() {
  const Picture picture = *picture_;
  const QString path = QFileDialog::getSaveFileName(
      window(), "Export picture", QDir::home().filePath(FileNameOf(picture)), "Pictures (*.pdf *.svg *.png)");
  if (path.isEmpty()) return;
  const QString trouble = ExportPicture(picture, path);
  if (!trouble.isEmpty()) QMessageBox::warning(window(), "Export picture", trouble);
}

}  // namespace kelp
