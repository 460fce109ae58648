// SPDX-License-Identifier: GPL-3.0-or-later
// The Start button's caption and what goes with it.
#pragma once

#include <optional>
#include <string>

#include "core/caption_table.hpp"
#include "core/kelp.hpp"

namespace kelp {

struct ButtonPrompt {
  std::string Caption;
  std::optional<std::string> Tip = {};
  std::optional<std::string> Text = {};
  std::optional<std::uint32_t> Trace = {};
  bool SecondCopro = false;  ///< the caption means the second copro, where the names do not tell
};

/// Sets the caption, and makes the rest follow: the step and its selector (no click is fired), and the count
/// and the ring buffer, which begin anew with a "Load..." caption or another step. Trace colour, tooltip and
/// instruction are set where told, and else where those that are up do not go with the caption.
void SetButton(Kelp& kelp, const ButtonPrompt& prompt);

/// The row of the caption that is up.
const CaptionRow& ButtonRow(const Kelp& kelp);

/// The step that the caption belongs to, or the run's where it belongs to none.
std::string StepUnderWay(const Kelp& kelp);

/// Sets the step, and the selector after it; another step begins with an empty buffer.
void SetStep(Kelp& kelp, const std::string& step);

/// Moves the run to another sample; what was loaded for the one that is left can't be saved any more.
void MoveToSample(Kelp& kelp, int sample);

/// Sets the instruction; while the program is paused it comes up with the end of the pause.
void Say(Kelp& kelp, const std::string& text);

/// The instruction as it is, or will be after the pause.
const std::string& Said(const Kelp& kelp);

bool IsPaused(const Kelp& kelp);

}  // namespace kelp
