// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/machine/print_preview.hpp"

#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPrintPreviewWidget>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

#include "desktop/machine/report_pages.hpp"

namespace kelp {

bool PreviewPages(QWidget* parent, QPrinter& printer, const QStringList& lines) {
  QDialog dialog(parent);
  dialog.setWindowTitle(QStringLiteral("Report to be printed"));
  auto* pages = new QPrintPreviewWidget(&printer, &dialog);
  pages->setAccessibleName(QStringLiteral("Pages of the report"));
  QObject::connect(pages, &QPrintPreviewWidget::paintRequested, &dialog,
                   [&lines](QPrinter* device) { PrintLines(*device, lines); });
  auto* where = new QLabel("Printer: " + printer.printerName());
  auto* buttons = new QDialogButtonBox;
  buttons->addButton(QStringLiteral("&Print"), QDialogButtonBox::AcceptRole)->setDefault(true);
  buttons->addButton(QStringLiteral("Do &not print"), QDialogButtonBox::RejectRole);
  QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
  QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
  auto* layout = new QVBoxLayout(&dialog);
  layout->addWidget(pages, 1);
  layout->addWidget(where);
  layout->addWidget(buttons);
  dialog.resize(QSize(760, 900).boundedTo(dialog.screen()->availableSize() * 9 / 10));
  pages->fitToWidth();
  return dialog.exec() == QDialog::Accepted;
}

}  // namespace kelp
