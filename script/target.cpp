// SPDX-License-Identifier: GPL-3.0-or-later
#include "script/target.hpp"

#include <charconv>

#include "core/text.hpp"
#include "script/words.hpp"

namespace kelp {

namespace {

// One part of a name, between dots: "datalog(2,3)".
struct Part {
  std::string name;
  RunIndex index = {};
};

[[noreturn]] void Unknown(std::string_view name, const std::string& why) {
  ScriptIsWrong("unknown control \"" + std::string(name) + "\": " + why);
}

int IndexIn(std::string_view whole, std::string_view text) {
  int index = 0;
  text = Trim(text);
  const auto result = std::from_chars(text.data(), text.data() + text.size(), index);
  if (text.empty() || result.ec != std::errc() || result.ptr != text.data() + text.size() || index < 0)
    Unknown(whole, "\"" + std::string(text) + "\" is no index");
  return index;
}

Part ReadPart(std::string_view whole, std::string_view text) {
  const auto open = text.find('(');
  Part part{std::string(text.substr(0, open))};
  if (open == std::string_view::npos) return part;
  if (text.back() != ')') Unknown(whole, "a \")\" is missing");
  const std::string_view inside = text.substr(open + 1, text.size() - open - 2);
  const auto comma = inside.find(',');
  part.index.First = IndexIn(whole, inside.substr(0, comma));
  if (comma != std::string_view::npos) part.index.Second = IndexIn(whole, inside.substr(comma + 1));
  return part;
}

std::vector<Part> ReadParts(std::string_view whole) {
  std::vector<Part> parts;
  std::string_view rest = whole;
  for (auto dot = rest.find('.'); dot != std::string_view::npos; dot = rest.find('.')) {
    parts.push_back(ReadPart(whole, rest.substr(0, dot)));
    rest.remove_prefix(dot + 1);
  }
  parts.push_back(ReadPart(whole, rest));
  return parts;
}

std::string ScreenName(Kelp& kelp, std::string_view whole, std::string_view screen) {
  std::string found;
  VisitScreens(kelp, [&](std::string_view name, auto& /*form*/) {
    if (SameIgnoringCase(name, screen)) found = name;
  });
  if (found.empty()) Unknown(whole, "there is no screen \"" + std::string(screen) + "\"");
  return found;
}

bool IsAnyOf(std::string_view name, std::initializer_list<std::string_view> names) {
  for (const std::string_view candidate : names)
    if (SameIgnoringCase(candidate, name)) return true;
  return false;
}

bool HasMember(const Target& target, const ControlRef& control, std::string_view member) {
  const auto is = [&](std::string_view name) { return SameIgnoringCase(name, member); };
  const bool grid = std::holds_alternative<Grid*>(control);
  if (is("ToolTipText") || is("Enabled") || is("Visible")) return !target.IsCell();
  if (is("BackColor")) return target.IsCell();
  if (is("Value"))
    return std::holds_alternative<OptionButton*>(control) || std::holds_alternative<CheckBox*>(control);
  const bool text = std::holds_alternative<TextBox*>(control) || std::holds_alternative<ComboBox*>(control);
  if (is("Text")) return text || target.IsCell();
  if (is("Caption")) return !text && !grid;
  return false;
}

ControlRef ControlOf(Kelp& kelp, const Target& target) {
  const FocusPlace& place = target.Place;
  return FindControl(kelp, place.Screen, place.Control,
                     place.Index < 0 ? std::nullopt : std::optional(place.Index));
}

Target FindOnScreen(Kelp& kelp, std::string_view whole, const std::vector<Part>& parts) {
  Target target{.Name = std::string(whole)};
  target.Place.Screen = ScreenName(kelp, whole, parts[0].name);
  if (parts.size() < 2 || parts[0].index.First) Unknown(whole, "name a control of the screen");
  const Part& part = parts[1];
  if (parts.size() == 2 && !part.index.First && IsAnyOf(part.name, {"Visible", "Caption"})) {
    target.Is = Target::Kind::Screen;
    target.Member = part.name;
    return target;
  }
  target.Place.Control = part.name;
  ControlRef control = FindControl(kelp, target.Place.Screen, part.name, {});
  if (part.index.Second && std::holds_alternative<Grid*>(control)) {
    const Grid& grid = *std::get<Grid*>(control);
    target.Index = part.index;
    if (*part.index.First >= grid.Rows || *part.index.Second >= grid.Cols)
      Unknown(whole, "the grid has rows 0 to " + std::to_string(grid.Rows - 1) + " and columns 0 to " +
                         std::to_string(grid.Cols - 1));
  } else if (part.index.First) {
    target.Place.Index = *part.index.First;
    control = part.index.Second ? ControlRef{} : ControlOf(kelp, target);
  }
  if (std::holds_alternative<std::monostate>(control))
    Unknown(whole, target.Place.Screen + " has no such control or index");
  if (parts.size() > 3) Unknown(whole, "there are too many dots");
  if (parts.size() == 3) {
    target.Member = parts[2].name;
    if (parts[2].index.First || !HasMember(target, control, target.Member))
      Unknown(whole, "it has no ." + target.Member);
  }
  return target;
}

template <class Read>
std::string FromControl(const ControlRef& control, const Read& read) {
  return std::visit(
      [&](const auto& c) -> std::string {
        if constexpr (std::is_same_v<std::decay_t<decltype(c)>, std::monostate>)
          return {};
        else
          return read(*c);
      },
      control);
}

std::string Digit(bool value) { return value ? "1" : "0"; }

std::string ControlValue(Kelp& kelp, const Target& target) {
  const ControlRef control = ControlOf(kelp, target);
  const auto is = [&](std::string_view member) { return SameIgnoringCase(target.Member, member); };
  if (is("ToolTipText")) return FromControl(control, [](const auto& c) { return c.ToolTipText; });
  if (is("Enabled")) return FromControl(control, [](const auto& c) { return Digit(c.Enabled); });
  if (is("Visible")) return FromControl(control, [](const auto& c) { return Digit(c.Visible); });
  if (const auto* option = std::get_if<OptionButton*>(&control); option && is("Value"))
    return Digit((*option)->Value);
  if (const auto* check = std::get_if<CheckBox*>(&control); check && is("Value"))
    return Digit((*check)->Value);
  const auto* grid = std::get_if<Grid*>(&control);
  if (grid == nullptr) return ValueOf(control);
  if (!target.IsCell()) Unknown(target.Name, "name a cell of the grid, such as datalog(1,3)");
  const Grid::Cell& cell = (*grid)->At(*target.Index.First, *target.Index.Second);
  return is("BackColor") ? std::to_string(cell.BackColor) : cell.Text;
}

std::string ChartText(float value) {
  char buffer[64];
  return {buffer, std::to_chars(buffer, buffer + sizeof buffer, value).ptr};
}

bool IsBoolean(const Target& target, std::string_view value) {
  if (target.Is == Target::Kind::Run) return value == "True" || value == "False";
  return IsAnyOf(target.Member, {"Enabled", "Visible", "Value"});
}

}  // namespace

Target FindTarget(Kelp& kelp, std::string_view name) {
  if (name.empty()) ScriptIsWrong("a control is missing");
  if (SameIgnoringCase(name, "status")) return {Target::Kind::Status, std::string(name)};
  const std::vector<Part> parts = ReadParts(name);
  if (parts.size() == 1 && SameIgnoringCase(parts[0].name, "chart")) {
    if (!parts[0].index.First || parts[0].index.Second || *parts[0].index.First >= StripChart::kSlots)
      Unknown(name, "the chart has values 0 (oldest) to " + std::to_string(StripChart::kSlots - 1));
    return {Target::Kind::Chart, std::string(name), {}, parts[0].index};
  }
  if (!SameIgnoringCase(parts[0].name, "run")) return FindOnScreen(kelp, name, parts);
  Target target{Target::Kind::Run, std::string(name)};
  if (parts.size() == 2) {
    target.Member = parts[1].name;
    target.Index = parts[1].index;
  }
  if (!RunValue(kelp, target.Member, target.Index)) Unknown(name, "the run state has no such name or index");
  return target;
}

Target FindControlTarget(Kelp& kelp, std::string_view name) {
  Target target = FindTarget(kelp, name);
  if (target.Is != Target::Kind::Control || !target.Member.empty())
    ScriptIsWrong("\"" + target.Name + "\" is no control that an operator can reach");
  if (target.IsCell() && *target.Index.First == 0)
    ScriptIsWrong("\"" + target.Name + "\" is a heading; the rows of the grid begin with 1");
  return target;
}

std::string TargetValue(Kelp& kelp, const Target& target) {
  switch (target.Is) {
    case Target::Kind::Control: return ControlValue(kelp, target);
    case Target::Kind::Status: return kelp.frmAcquire.StatusBar1.Text;
    case Target::Kind::Chart: return ChartText(kelp.run.Chart.Value(*target.Index.First));
    case Target::Kind::Run: return RunValue(kelp, target.Member, target.Index).value_or("");
    case Target::Kind::Screen: break;
  }
  const Window& window = *FindWindow(kelp, target.Place.Screen);
  return SameIgnoringCase(target.Member, "Visible") ? Digit(window.Visible) : window.Caption;
}

bool TargetIs(Kelp& kelp, const Target& target, std::string_view expected) {
  const std::string value = TargetValue(kelp, target);
  if (Visible(value) == expected) return true;
  if (IsBoolean(target, value)) {
    const bool isTrue = value == "1" || value == "True";
    return isTrue ? IsAnyOf(expected, {"1", "-1", "True"}) : IsAnyOf(expected, {"0", "False"});
  }
  const bool colour =
      SameIgnoringCase(target.Member, "BackColor") || SameIgnoringCase(target.Member, "TraceColor");
  if (!colour || !StartsWith(Upper(expected), "&H")) return false;
  unsigned long number = 0;
  const auto result = std::from_chars(expected.data() + 2, expected.data() + expected.size(), number, 16);
  return result.ptr == expected.data() + expected.size() && std::to_string(number) == value;
}

}  // namespace kelp
