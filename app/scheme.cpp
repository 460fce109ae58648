// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/scheme.hpp"

#include "core/screens/acquire.hpp"

namespace kelp {

namespace {

constexpr Scheme kLight = {
    .Window = 0xEFEFEF,
    .Text = 0x16181A,
    .Base = 0xFFFFFF,
    .Button = 0xF6F6F6,
    .Highlight = 0x1F66AD,
    .HighlightedText = 0xFFFFFF,
    .Disabled = 0x666A6E,
    .Faint = 0x5A5E62,
    .Edge = 0xBFC3C7,
    .BoxEdge = 0x7E8388,
    .Good = 0x1B7A3D,
    .Warn = 0x9A4300,
    .Focus = 0x16181A,
    .Next = 0x1F66AD,
    .Cell = kGreyCell,
    .ReadingCell = 0xFFFFFF,
    .CellText = 0x000000,
    .CellLine = 0xC6C6C6,
    .ChartGround = 0xFFFFFF,
    .ChartInk = 0x000000,
    .Band = 0xCFE3F5,
    .Alarm = {0xB3261E, 0xFFFFFF},
    .Acid = {0xFFD400, 0x16181A},
    .Flag = {0x8A4B00, 0xFFFFFF},
    .WorseFlag = {0x9C1C1C, 0xFFFFFF},
};

constexpr Scheme kDark = {
    .Window = 0x2B2D30,
    .Text = 0xE8EAEC,
    .Base = 0x1E2022,
    .Button = 0x3A3D41,
    .Highlight = 0x7DBEF2,
    .HighlightedText = 0x0E1012,
    .Disabled = 0xA6AAB0,
    .Faint = 0xB4B8BD,
    .Edge = 0x5C6167,
    .BoxEdge = 0x858B92,
    .Good = 0x6FD08C,
    .Warn = 0xFFB454,
    .Focus = 0xFFFFFF,
    .Next = 0x7DBEF2,
    .Cell = 0x26282B,
    .ReadingCell = 0x40454B,
    .CellText = 0xF4F6F8,
    .CellLine = 0x565B61,
    .ChartGround = 0x1E2022,
    .ChartInk = 0xE8EAEC,
    .Band = 0x2C4A66,
    .Alarm = {0xFF8A80, 0x1C0402},
    .Acid = {0xFFD400, 0x16181A},
    .Flag = {0xFFB454, 0x1C1000},
    .WorseFlag = {0xFF8A80, 0x1C0402},
};

}  // namespace

const Scheme& SchemeOf(bool dark) { return dark ? kDark : kLight; }

Inked PlateOf(SaveState state, bool dark) {
  const Rgb ink = dark ? 0x0E1012 : 0xFFFFFF;
  switch (state) {
    case SaveState::Load: return {dark ? 0xE59BF0U : 0x7A1FA0U, ink};
    case SaveState::Saved: return {dark ? 0x7DBEF2U : 0x1F5FA6U, ink};
    case SaveState::Reading: return {dark ? 0xC4C8CDU : 0x50565CU, ink};
    case SaveState::NotSteady: return {dark ? 0xFFB454U : 0x8A4B00U, ink};
    case SaveState::CanSave: return {dark ? 0x6FD08CU : 0x1B7A3DU, ink};
    case SaveState::Acid: return SchemeOf(dark).Acid;
    case SaveState::Paused:
    case SaveState::Idle: break;
  }
  return {dark ? 0x90969DU : 0x6A7076U, ink};
}

Rgb CellGround(Rgb cell, bool dark) {
  if (!dark) return cell;
  return cell == kGreyCell ? kDark.Cell : kDark.ReadingCell;
}

Rgb FromTrace(std::uint32_t trace) {
  return (trace & 0xFFU) << 16 | (trace & 0xFF00U) | (trace >> 16 & 0xFFU);
}

bool NeedsOutline(Rgb bars, bool dark) { return Contrast(bars, SchemeOf(dark).ChartGround) < kSignContrast; }

std::vector<Pairing> Pairings(bool dark) {
  const Scheme& c = SchemeOf(dark);
  std::vector<Pairing> pairs = {
      {"text", c.Text, c.Window, kTextContrast},
      {"text in a box", c.Text, c.Base, kTextContrast},
      {"text on a button", c.Text, c.Button, kTextContrast},
      {"marked text", c.HighlightedText, c.Highlight, kTextContrast},
      {"disabled text", c.Disabled, c.Window, kTextContrast},
      {"disabled button", c.Disabled, c.Button, kTextContrast},
      {"disabled box", c.Disabled, c.Base, kTextContrast},
      {"faint text", c.Faint, c.Window, kTextContrast},
      {"faint number", c.Faint, c.Base, kTextContrast},
      {"good", c.Good, c.Base, kTextContrast},
      {"warning", c.Warn, c.Window, kTextContrast},
      {"warning in a box", c.Warn, c.Base, kTextContrast},
      {"focus", c.Focus, c.Window, kSignContrast},
      {"box to type into", c.BoxEdge, c.Base, kSignContrast},
      {"box on a window", c.BoxEdge, c.Window, kSignContrast},
      {"focus in a box", c.Focus, c.Base, kSignContrast},
      {"focus on a button", c.Focus, c.Button, kSignContrast},
      {"focus in the grid", c.Focus, c.Cell, kSignContrast},
      {"focus in a reading", c.Focus, c.ReadingCell, kSignContrast},
      {"next cell", c.Next, c.ReadingCell, kSignContrast},
      {"next box", c.Next, c.Base, kSignContrast},
      {"grid", c.CellText, c.Cell, kTextContrast},
      {"grid reading", c.CellText, c.ReadingCell, kTextContrast},
      {"chart", c.ChartInk, c.ChartGround, kTextContrast},
      {"mean on the band", c.ChartInk, c.Band, kTextContrast},
      {"trace of the reads", c.Highlight, c.ChartGround, kSignContrast},
      {"trace on the band", c.Highlight, c.Band, kSignContrast},
      {"alarm", c.Alarm.Ink, c.Alarm.Ground, kTextContrast},
      {"acid", c.Acid.Ink, c.Acid.Ground, kTextContrast},
      {"flag", c.Flag.Ink, c.Flag.Ground, kTextContrast},
      {"worse flag", c.WorseFlag.Ink, c.WorseFlag.Ground, kTextContrast},
      {"flag's plate", c.Flag.Ground, c.Cell, kSignContrast},
      {"worse flag's plate", c.WorseFlag.Ground, c.Cell, kSignContrast},
  };
  for (int state = 0; state <= static_cast<int>(SaveState::Paused); ++state) {
    const Inked plate = PlateOf(static_cast<SaveState>(state), dark);
    pairs.push_back({"words of a save state", plate.Ink, plate.Ground, kTextContrast});
    // The acid plate has a dark frame of its own where its yellow is near the ground.
    const Rgb edge = static_cast<SaveState>(state) == SaveState::Acid && !dark ? plate.Ink : plate.Ground;
    pairs.push_back({"plate of a save state", edge, c.Window, kSignContrast});
  }
  for (const std::uint32_t trace : {kTraceMagenta, kTraceGreen, kTraceBlue, kTraceRed, kTraceBlack}) {
    const Rgb bars = FromTrace(trace);
    pairs.push_back(
        {"bars of the chart", NeedsOutline(bars, dark) ? c.ChartInk : bars, c.ChartGround, kSignContrast});
  }
  return pairs;
}

}  // namespace kelp
