// SPDX-License-Identifier: GPL-3.0-or-later
// Finds controls and run-state values by name, through each screen's own list of controls. The
// console, the desktop and the tests have no other way to a control.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "core/kelp.hpp"

namespace kelp {

using ControlRef =
    std::variant<std::monostate, Label*, Button*, TextBox*, OptionButton*, CheckBox*, ComboBox*, Grid*>;

/// The control `name` of a screen, without regard to letter case. `index` is empty for a control that
/// is no array member; a single control with an alias index is found under that too. Monostate when
/// there is none.
ControlRef FindControl(Kelp& kelp, std::string_view screen, std::string_view name, std::optional<int> index);

/// The text or caption of a control; "" for a grid.
std::string ValueOf(const ControlRef& control);

/// A value of the run state as text (`RunValue(kelp, "SampTbl", {5, 7})`): booleans as True and False,
/// numbers plain. Nothing when there is no such name or index.
struct RunIndex {
  std::optional<int> First = {};
  std::optional<int> Second = {};
};
std::optional<std::string> RunValue(const Kelp& kelp, std::string_view name, RunIndex index);

}  // namespace kelp
