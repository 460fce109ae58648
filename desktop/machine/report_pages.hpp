// SPDX-License-Identifier: GPL-3.0-or-later
// The pages of a printed document: lines in a fixed-width font, in which the report's columns stand.
#pragma once

#include <QPagedPaintDevice>
#include <QStringList>

namespace kelp {

/// Prints the lines on a printer or into a PDF, with page breaks. The font is fitted to lines of 80
/// characters, or to the longest line up to 132; what is longer goes on in the next line. False when
/// the device fails; part of the document may be out then.
bool PrintLines(QPagedPaintDevice& device, const QStringList& lines);

/// The document as a PDF file's content; empty when it can't be made.
QByteArray PdfOf(const QStringList& lines, const QString& title);

}  // namespace kelp
