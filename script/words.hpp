// SPDX-License-Identifier: GPL-3.0-or-later
// The words of a script line, and the forms in which a script writes text that has no place on a line.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "script/failure.hpp"

namespace kelp {

/// Takes the next word off the front of `rest` together with the one blank or tab behind it, so that
/// what is left is the rest of the line exactly as it was typed. Blanks inside parentheses belong to the
/// word: a control may be written "frmAcquire.datalog(2, 3)".
std::string_view TakeWord(std::string_view& rest);

/// The value as a script shows it: a line break is `\n`, a carriage return `\r`, any other control
/// character `\xHH`. A backslash stays as it is, so that paths read as they are.
std::string Visible(std::string_view text);

/// The text behind `\r`, `\n`, `\\` and `\xHH`; nothing when there is another escape.
std::optional<std::string> Unescaped(std::string_view text);

/// A number of seconds, 0 to a million, as milliseconds. Throws ScriptFault.
long long MillisecondsIn(std::string_view word);

/// A whole number from 1 to a million. Throws ScriptFault.
int CountIn(std::string_view word);

/// Throws ScriptFault when something is left on the line.
void ExpectEnd(std::string_view rest);

}  // namespace kelp
