// SPDX-License-Identifier: GPL-3.0-or-later
// The pages of a report on the screen, before they go to the printer.
#pragma once

#include <QPrinter>
#include <QStringList>
#include <QWidget>

namespace kelp {

/// Shows the pages as this printer will print them. True when they are to be printed.
bool PreviewPages(QWidget* parent, QPrinter& printer, const QStringList& lines);

}  // namespace kelp
