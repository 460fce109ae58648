// SPDX-License-Identifier: GPL-3.0-or-later
// What the captions of the Start button mean. The caption is the sub-step of a run: this table says, once, to
// which step it belongs, what a click may do there, and which trace colour, tooltip and instruction go with
// it.
#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/run_state.hpp"

namespace kelp {

/// What is measured.
enum class Item { None, Blank, LowStandard, HighStandard, Copro1, Copro2, Rb, Ra };

/// What a click does.
enum class Phase {
  Idle,  ///< prompts the selected step
  Load,  ///< the item is loaded: its reading begins
  Read,  ///< nothing while the loaded item is read
  Save,  ///< saves by hand
  Acid,  ///< the Ra is read from here on
  Next,  ///< opens the chooser
};

struct CaptionRow {
  const char* Caption;  ///< "{1}" and "{2}" stand for the names of the copros
  Phase Does;
  Item What;
  const char* Step;                     ///< the step that it belongs to; "" for one that belongs to none
  int Selector;                         ///< the index of `Option1` that goes with it, or -1
  std::array<std::uint32_t, 3> Traces;  ///< colours that may be up with it; the first is set
  const char* Tips;   ///< beginnings that the tooltip may have, between "|"; the first is set
  const char* Texts;  ///< the same for the instruction
};

/// All captions there are.
std::span<const CaptionRow> CaptionTable();

/// The row of a caption; the copro that a caption means is the one whose whole name it holds. One that no row
/// has belongs to nothing (`What` None, `Step` "").
const CaptionRow& CaptionOf(const RunState& run, std::string_view caption);

/// The text with the names of the copros.
std::string WithNames(const RunState& run, std::string_view text);

/// The alternatives of `Tips` or `Texts`, with the names of the copros.
std::vector<std::string> Alternatives(const RunState& run, std::string_view texts);

/// True when a text begins with one of the alternatives, or with one of those that go with every caption.
bool GoesWith(const RunState& run, std::string_view alternatives, std::string_view text);

}  // namespace kelp
