// SPDX-License-Identifier: GPL-3.0-or-later
// Whether what has been read may be saved now.
#pragma once

#include <string>

#include "core/kelp.hpp"

namespace kelp {

enum class SavedBy { Hand, Autoread };

/// An average exists, and its SD is one of the reads that it was made of.
bool HasAverage(const Kelp& kelp);

/// An average exists and its SD, as shown, is at or below the criterion.
bool SdIsMet(const Kelp& kelp);

/// Why the value can't be saved now, in words for the status bar; "" when it can. By hand the SD is not
/// asked, and an Ra needs no more reads than the rest.
std::string WhyNotSaved(const Kelp& kelp, SavedBy by);

}  // namespace kelp
