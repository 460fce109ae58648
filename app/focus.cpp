// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/focus.hpp"

#include "app/editor.hpp"
#include "core/text.hpp"
#include "workflow/open_station.hpp"
#include "workflow/run_controls.hpp"

namespace kelp {

namespace {

void Leave(Kelp& kelp, const FocusPlace& place) {
  const Window* window = FindWindow(kelp, place.Screen);
  if (window == nullptr || !window->Visible) return;
  if (IsAt(place, "frmAcquire", "txtStaInfo")) txtStaInfo_LostFocus(kelp, place.Index);
  if (IsAt(place, "frmCreateBase", "Text1")) CreateBox_LostFocus(kelp, place.Index);
  if (IsAt(place, "frmEditCFG", "Text1") && place.Index == FrmEditCFG::kFirstBox &&
      kelp.frmEditCFG.CruiseEdited) {
    kelp.frmEditCFG.CruiseEdited = false;
    frmEditCFG_CruiseLostFocus(kelp);
  }
}

// Collects the controls of a screen that can take the focus, in the order of its list.
struct TabOrder {
  std::vector<FocusPlace> places = {};
  std::string screen;

  template <class Control>
  void Add(std::string_view name, const Control& control, int index) {
    if (control.Enabled && control.Visible) places.push_back({screen, std::string(name), index});
  }
  void operator()(std::string_view /*name*/, const Label& /*label*/, int /*alias*/ = -1) {}
  template <int Count, int First>
  void operator()(std::string_view /*name*/, const ControlArray<Label, Count, First>& /*labels*/) {}
  template <class Control>
  void operator()(std::string_view name, const Control& control, int /*alias*/ = -1) {
    Add(name, control, -1);
  }
  template <class Control, int Count, int First>
  void operator()(std::string_view name, const ControlArray<Control, Count, First>& controls) {
    for (int i = First; i <= controls.kLast; ++i) Add(name, controls[i], i);
  }
};

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
  TabOrder order{.screen = std::string(screen)};
  VisitScreens(kelp, [&](std::string_view name, auto& candidate) {
    if (SameIgnoringCase(name, screen)) candidate.VisitControls(candidate, order);
  });
  if (order.places.empty()) return;
  const FocusPlace now = FocusOn(kelp, screen);
  std::size_t next = 0;
  for (std::size_t i = 0; i < order.places.size(); ++i)
    if (IsAt(now, screen, order.places[i].Control) && now.Index == order.places[i].Index)
      next = (i + 1) % order.places.size();
  MoveFocus(kelp, order.places[next]);
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
