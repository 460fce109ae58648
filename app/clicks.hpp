// Clicks, by control.
#pragma once

#include "core/kelp.hpp"

namespace kelp {

void ClickControl(Kelp& kelp, const FocusPlace& place);
void DblClickControl(Kelp& kelp, const FocusPlace& place);
/// A window is closed by its frame: the same question, or the same way out, as its own button.
void CloseWindow(Kelp& kelp, std::string_view screen);

}  // namespace kelp
