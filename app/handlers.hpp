// SPDX-License-Identifier: GPL-3.0-or-later
// What the operator can do to the controls of the screens, and what each does: one table.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <variant>

#include "core/kelp.hpp"

namespace kelp {

enum class Doing {
  Click,
  DblClick,
  Edit,    ///< the operator's editing left a text: the handler takes it, the control's value is its business
  Edited,  ///< the text stands in the control already
  Leave,   ///< the focus leaves the control
  Enter,
  FunctionKey,
  Close,   ///< the window is closed by its frame
  Escape,  ///< the window is left without effect
};

/// A handler takes what it needs of the event: the index of the control (or the number of the function key),
/// the text that was typed, or the whole place.
using Handler = std::variant<void (*)(Kelp&), void (*)(Kelp&, int), void (*)(Kelp&, int, const std::string&),
                             void (*)(Kelp&, const FocusPlace&)>;

struct HandlerRow {
  std::string_view Screen;
  std::string_view Control;  ///< "" for every control of the screen, and for the screen itself
  Doing What;
  Handler Do;
  How Way = How::Typed;  ///< how a value comes that it stores, where the handler does not say that better
};

/// The whole table, for those who look whether it is complete.
std::span<const HandlerRow> Handlers();

/// The row for what is done at a place, without regard to letter case; null when there is none. A row for the
/// control itself goes before one for its screen.
const HandlerRow* HandlerOf(Doing what, const FocusPlace& place);

/// Runs the handler for it; false when there is none.
bool RunHandler(Kelp& kelp, Doing what, const FocusPlace& place, const std::string& text = {});

}  // namespace kelp
