// SPDX-License-Identifier: GPL-3.0-or-later
// The machine of a script that plays in the real windows: answers, files, line and printer follow the
// script, screens and message boxes are real.
#pragma once

#include <optional>
#include <string>

#include "desktop/machine/screen_host.hpp"
#include "platform/scripted.hpp"

namespace kelp {

class ScriptMachine : public ScriptedPlatform {
 public:
  using ScriptedPlatform::ScriptedPlatform;

  ScreenHost Screens = {};

  /// Shows the box and presses the button that the script queued. Without one the box is answered by
  /// what changes nothing, and the missing answer is kept: no exception may pass through a widget.
  Answer Ask(const Message& message) override;
  std::optional<std::string> AskFile(const FileQuestion& question) override;

  /// Throws the first missing answer, as the console's machine does.
  void TellMissingAnswer();
  [[nodiscard]] bool AnswerIsMissing() const { return missing_.has_value(); }

  void ScreenShown(const std::string& screen) override;
  void ScreenHidden(const std::string& screen) override;
  void ScreenRaised(const std::string& screen) override { Screens.Raised(screen); }

 private:
  std::optional<NoAnswer> missing_ = {};
};

}  // namespace kelp
