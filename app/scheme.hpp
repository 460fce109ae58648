// SPDX-License-Identifier: GPL-3.0-or-later
// The colours of the light and the dark scheme, below the windows so that a test can count their contrast:
// every text stands out 4.5 times from its ground, every sign 3 times.
#pragma once

#include <array>
#include <vector>

#include "app/glance.hpp"
#include "core/contrast.hpp"

namespace kelp {

/// A colour on a ground.
struct Inked {
  Rgb Ground = 0;
  Rgb Ink = 0;
};

struct Scheme {
  Rgb Window, Text, Base, Button;
  Rgb Highlight, HighlightedText;
  Rgb Disabled;  ///< texts of what can't be used now
  Rgb Faint;     ///< captions beside a value, and a number that is no value of this item
  Rgb Edge;      ///< thin lines around panels
  Rgb BoxEdge;   ///< around a box to type into
  Rgb Good;      ///< a criterion is met
  Rgb Warn;      ///< something wants attention
  Rgb Focus;     ///< the ring around the control that has the keys
  Rgb Next;      ///< the frame around the cell that the next value goes to
  Rgb Cell, ReadingCell, CellText, CellLine;
  Rgb ChartGround, ChartInk, Band;
  Inked Alarm;
  Inked Acid;  ///< the acid instruction, and no other
  Inked Flag, WorseFlag;
};

const Scheme& SchemeOf(bool dark);

/// The plate of a save state.
Inked PlateOf(SaveState state, bool dark);

/// The ground of a grid cell of this colour: the reading columns stay lighter than the rest.
Rgb CellGround(Rgb cell, bool dark);

/// A trace colour (a number with red in its lowest byte) as 0xRRGGBB.
Rgb FromTrace(std::uint32_t trace);
/// True when bars of this colour need an outline to be seen on the chart's ground.
bool NeedsOutline(Rgb bars, bool dark);

/// A pair of colours of the scheme that must stand out from each other.
struct Pairing {
  const char* Name;
  Rgb Ink, Ground;
  double Least;
};
/// All texts and signs of a scheme with their grounds.
std::vector<Pairing> Pairings(bool dark);

}  // namespace kelp
