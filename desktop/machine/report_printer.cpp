// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/machine/report_printer.hpp"

#include <QFileInfo>
#include <QPrintDialog>
#include <QPrinterInfo>
#include <QSaveFile>

#include "desktop/machine/report_pages.hpp"
#include "platform/error.hpp"

namespace kelp {

namespace {

// No document is ever written over: "chl001.pdf", "chl001-2.pdf", "chl001-3.pdf" ...
std::string FreeName(const std::string& wanted, const std::function<bool(const std::string&)>& exists) {
  const std::size_t folder = wanted.find_last_of("\\/");
  std::size_t dot = wanted.rfind('.');
  if (dot == std::string::npos || (folder != std::string::npos && dot < folder)) dot = wanted.size();
  std::string name = wanted;
  for (int i = 2; exists(name); ++i)
    name = wanted.substr(0, dot) + "-" + std::to_string(i) + wanted.substr(dot);
  return name;
}

Message PdfOffer(const std::string& path) {
  return {.Text = "No printer is set up on this machine.\nSave the report as " + path + " instead? Y/N",
          .Title = "No printer",
          .Buttons = Buttons::YesNo,
          .Icon = Icon::Exclamation};
}

std::string Pdf(const QStringList& lines) {
  const QByteArray content = PdfOf(lines, QStringLiteral("Fluorometer data log"));
  if (content.isEmpty()) throw FileError("printer", "the report could not be laid out as a PDF");
  return content.toStdString();
}

}  // namespace

QPrinter& ReportPrinter::Printer() {
  if (!printer_) {
    printer_ = std::make_unique<QPrinter>(QPrinter::HighResolution);
    printer_->setDocName(QStringLiteral("Fluorometer data log"));
    const QStringList names = QPrinterInfo::availablePrinterNames();
    if (names.contains(name_))
      printer_->setPrinterName(name_);
    else if (!names.isEmpty() && printer_->outputFormat() == QPrinter::PdfFormat)
      printer_->setPrinterName(names.constFirst());  // the machine has named no default one
  }
  return *printer_;
}

QString ReportPrinter::Choose(QWidget* parent) {
  QPrintDialog dialog(&Printer(), parent);
  if (dialog.exec() != QDialog::Accepted) return {};
  toFile_ = Printer().outputFormat() == QPrinter::PdfFormat;
  return toFile_ ? QString() : Printer().printerName();
}

void ReportPrinter::PrintToChosenFile(const QStringList& lines) const {
  const std::string name = FreeName(
      printer_->outputFileName().toStdString(),
      [](const std::string& candidate) { return QFileInfo::exists(QString::fromStdString(candidate)); });
  const std::string content = Pdf(lines);
  QSaveFile file(QString::fromStdString(name));
  const auto size = static_cast<qint64>(content.size());
  if (!file.open(QIODevice::WriteOnly) || file.write(content.data(), size) != size || !file.commit())
    throw FileError("printer", name + " can't be written (" + file.errorString().toStdString() +
                                   "); choose another file or printer, then print again");
}

void ReportPrinter::EndDocument(const std::function<Answer(const Message&)>& ask, Disk& disk,
                                const std::string& pdfPath) {
  QStringList lines;
  lines.swap(lines_);
  if (lines.isEmpty()) return;
  if (toFile_) {
    PrintToChosenFile(lines);
  } else if (QPrinterInfo::availablePrinterNames().isEmpty()) {
    const std::string path = FreeName(pdfPath, [&](const std::string& name) { return disk.Exists(name); });
    if (ask(PdfOffer(path)) == Answer::Yes) disk.Replace(path, Pdf(lines));
  } else if (Preview && !Preview(Printer(), lines)) {
    return;
  } else if (!PrintLines(Printer(), lines) || Printer().printerState() == QPrinter::Error) {
    throw FileError("printer", Printer().printerName().toStdString() +
                                   " does not print; see to it or choose another one, then print again");
  }
}

}  // namespace kelp
