// SPDX-License-Identifier: GPL-3.0-or-later
// The painter that draws pictures with QPainter, and the export of a picture into a file.
#pragma once

#include <QPainter>
#include <QString>

#include "review/drawing.hpp"
#include "review/palette.hpp"

namespace kelp {

/// Paints into `target`, as large as it goes in with its proportions, on paper of the palette.
void PaintPicture(QPainter& painter, const Picture& picture, const QRectF& target, const Palette& palette);

/// Writes a file of the kind that `path` ends in: .svg, .pdf or .png (twice as fine as a screen), in the
/// light colours. An empty text, or what failed.
QString ExportPicture(const Picture& picture, const QString& path);

}  // namespace kelp
