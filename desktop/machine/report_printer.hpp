// SPDX-License-Identifier: GPL-3.0-or-later
// The printer: lines are gathered until the document ends, then printed at once, so that a station
// whose save fails half-way leaves no half page in the tray. Where the machine has no printer a PDF
// beside the station's files is offered.
#pragma once

#include <QPrinter>
#include <QStringList>
#include <QWidget>
#include <functional>
#include <memory>
#include <string>

#include "platform/platform.hpp"

namespace kelp {

class ReportPrinter {
 public:
  /// The printer to print on; empty for the machine's default one.
  explicit ReportPrinter(QString name) : name_(std::move(name)) {}

  /// Shows the pages before they go to the printer; false keeps them from it. Nothing is shown unless this is
  /// set.
  std::function<bool(QPrinter& printer, const QStringList& lines)> Preview = {};

  /// Lets the operator choose a printer, or a PDF file. The name of the printer chosen; nothing when
  /// none was.
  QString Choose(QWidget* parent);

  void AddLine(const std::string& line) { lines_ << QString::fromStdString(line); }

  /// Prints what was gathered and forgets it, printed or not: a repeated save brings it all again.
  /// `pdfPath` is the program path offered where there is no printer. Throws FileError ("printer", or
  /// the PDF's path) when it fails.
  void EndDocument(const std::function<Answer(const Message&)>& ask, Disk& disk, const std::string& pdfPath);

 private:
  QPrinter& Printer();
  void PrintToChosenFile(const QStringList& lines) const;

  QString name_;
  QStringList lines_ = {};
  std::unique_ptr<QPrinter> printer_ = {};
  bool toFile_ = false;
};

}  // namespace kelp
