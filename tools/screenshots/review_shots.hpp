// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures of the review window's tabs, over a generated cruise with something to find.
#pragma once

#include <QString>

#include "tests/desktop/desk.hpp"

namespace kelp {

void TakeReviewPictures(Desk& desk, const QString& folder);

}  // namespace kelp
