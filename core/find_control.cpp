// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/find_control.hpp"

#include <charconv>

#include "core/date_time.hpp"
#include "core/run_fields.hpp"
#include "core/text.hpp"

namespace kelp {

namespace {

struct Finder {
  std::string_view wanted;
  std::optional<int> index;
  ControlRef found = {};

  template <class Control>
  void operator()(std::string_view name, Control& control, std::optional<int> alias = {}) {
    if (SameIgnoringCase(name, wanted) && (!index || index == alias)) found = &control;
  }

  template <class Control, int Count, int First>
  void operator()(std::string_view name, ControlArray<Control, Count, First>& array) {
    if (SameIgnoringCase(name, wanted) && index && *index >= First && *index <= array.kLast)
      found = &array[*index];
  }
};

struct TextOf {
  std::string operator()(std::monostate) const { return {}; }
  std::string operator()(const Label* c) const { return c->Caption; }
  std::string operator()(const Button* c) const { return c->Caption; }
  std::string operator()(const TextBox* c) const { return c->Text; }
  std::string operator()(const OptionButton* c) const { return c->Caption; }
  std::string operator()(const CheckBox* c) const { return c->Caption; }
  std::string operator()(const ComboBox* c) const { return c->Text; }
  std::string operator()(const Grid* /*grid*/) const { return {}; }
};

std::string Shown(const std::string& value) { return value; }
std::string Shown(const Counter16& value) { return std::to_string(int{value}); }
std::string Shown(bool value) { return value ? "True" : "False"; }
std::string Shown(std::uint32_t value) { return std::to_string(value); }
std::string Shown(LocalTime value) { return ShortDate(value) + " " + LongTime(value); }
std::string Shown(float value) {
  char buffer[64];
  const auto result = std::to_chars(buffer, buffer + sizeof buffer, value);
  return {buffer, result.ptr};
}

std::optional<std::string> At(const StationTable& table, RunIndex index) {
  if (!index.First || !index.Second || *index.First < 0 || *index.First >= StationTable::kRows ||
      *index.Second < 0 || *index.Second >= StationTable::kCols)
    return {};
  return table(*index.First, *index.Second);
}
template <class Field>
std::optional<std::string> At(const Field& field, RunIndex index) {
  if constexpr (requires { Shown(field); }) {
    return index.First ? std::nullopt : std::optional(Shown(field));
  } else {
    if (!index.First || index.Second || static_cast<std::size_t>(*index.First) >= field.size()) return {};
    return Shown(field[static_cast<std::size_t>(*index.First)]);
  }
}

}  // namespace

ControlRef FindControl(Kelp& kelp, std::string_view screen, std::string_view name, std::optional<int> index) {
  Finder finder{name, index};
  VisitScreens(kelp, [&](std::string_view screenName, auto& candidate) {
    if (SameIgnoringCase(screenName, screen)) candidate.VisitControls(candidate, finder);
  });
  return finder.found;
}

std::string ValueOf(const ControlRef& control) { return std::visit(TextOf{}, control); }

std::optional<std::string> RunValue(const Kelp& kelp, std::string_view name, RunIndex index) {
  std::optional<std::string> value;
  VisitRunState(kelp.run, [&](const RunField& field, const auto& member) {
    if (field.Told && SameIgnoringCase(field.Name, name)) value = At(member, index);
  });
  return value;
}

}  // namespace kelp
