// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/focus.hpp"

#include "app/handlers.hpp"
#include "core/text.hpp"

namespace kelp {

namespace {

void Leave(Kelp& kelp, const FocusPlace& place) {
  const Window* window = FindWindow(kelp, place.Screen);
  if (window != nullptr && window->Visible) RunHandler(kelp, Doing::Leave, place);
}

// The controls of a screen that can take the focus, in the order of its list.
std::vector<FocusPlace> TabOrder(Kelp& kelp, std::string_view screen) {
  std::vector<FocusPlace> places;
  const auto add = [&](std::string_view name, int index, const auto& control) {
    const bool label = std::is_same_v<std::decay_t<decltype(control)>, Label>;
    if (!label && control.Enabled && control.Visible)
      places.push_back({std::string(screen), std::string(name), index});
  };
  VisitScreens(kelp, [&](std::string_view name, auto& candidate) {
    if (SameIgnoringCase(name, screen)) VisitEach(candidate, add);
  });
  return places;
}

}  // namespace

bool IsAt(const FocusPlace& place, std::string_view screen, std::string_view control) {
  return SameIgnoringCase(place.Screen, screen) && SameIgnoringCase(place.Control, control);
}

FocusPlace FocusOn(const Kelp& kelp, std::string_view screen) {
  if (SameIgnoringCase(kelp.Focus.Screen, screen)) return kelp.Focus;
  static const FocusPlace kBeginnings[] = {{"frmMain", "Command1", 0},
                                           {"frmLogin", "Combo1"},
                                           {"frmAcquire", "Command1"},
                                           {"frmCreateBase", "Text1", 0},
                                           {"frmWhatsNext", "Option1", 0},
                                           {"frmChangeStep", "Option1", 0},
                                           {"dlgRunRem", "Text1"},
                                           {"frmRecalc", "Text1", 0},
                                           {"frmEditCFG", "Text1", FrmEditCFG::kFirstBox},
                                           {"frmProgress", ""}};
  // The chooser begins on the choice that stands, not on OK.
  for (int i = 0; i < kelp.frmWhatsNext.Option1.kCount; ++i)
    if (SameIgnoringCase(screen, "frmWhatsNext") && kelp.frmWhatsNext.Option1[i].Value)
      return {"frmWhatsNext", "Option1", i};
  for (const FocusPlace& place : kBeginnings)
    if (SameIgnoringCase(place.Screen, screen)) return place;
  return {};
}

void MoveFocus(Kelp& kelp, const FocusPlace& place) {
  const FocusPlace left = kelp.Focus;
  kelp.Focus = place;
  if (IsAt(left, place.Screen, place.Control) && left.Index == place.Index) return;
  Leave(kelp, left);
}

void TabOn(Kelp& kelp, std::string_view screen) {
  const std::vector<FocusPlace> places = TabOrder(kelp, screen);
  if (places.empty()) return;
  const FocusPlace now = FocusOn(kelp, screen);
  std::size_t next = 0;
  for (std::size_t i = 0; i < places.size(); ++i)
    if (IsAt(now, screen, places[i].Control) && now.Index == places[i].Index) next = (i + 1) % places.size();
  MoveFocus(kelp, places[next]);
}

ControlRef ControlAt(Kelp& kelp, const FocusPlace& place) {
  return FindControl(kelp, place.Screen, place.Control,
                     place.Index < 0 ? std::nullopt : std::optional(place.Index));
}

bool TakesText(const ControlRef& control) {
  return std::holds_alternative<TextBox*>(control) || std::holds_alternative<ComboBox*>(control) ||
         std::holds_alternative<Grid*>(control);
}

}  // namespace kelp
