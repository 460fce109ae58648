// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/kelp.hpp"

#include <algorithm>

#include "core/text.hpp"

namespace kelp {

namespace {

// The name under which scripts and front ends know a screen.
std::string NameOf(Kelp& kelp, const Window& window) {
  std::string found;
  VisitScreens(kelp, [&](std::string_view name, auto& candidate) {
    if (&candidate.Form == &window) found = name;
  });
  return found;
}

}  // namespace

Window* FindWindow(Kelp& kelp, std::string_view screen) {
  Window* found = nullptr;
  VisitScreens(kelp, [&](std::string_view name, auto& candidate) {
    if (SameIgnoringCase(name, screen)) found = &candidate.Form;
  });
  return found;
}

void ShowScreen(Kelp& kelp, Window& window) {
  const std::string screen = NameOf(kelp, window);
  const bool wasVisible = window.Visible;
  window.Loaded = true;
  window.Visible = true;
  std::erase(kelp.Shown, screen);
  kelp.Shown.insert(kelp.Shown.begin(), screen);
  if (wasVisible)
    kelp.platform.ScreenRaised(screen);
  else
    kelp.platform.ScreenShown(screen);
}

void HideScreen(Kelp& kelp, Window& window) {
  if (!window.Visible) return;
  window.Visible = false;
  const std::string screen = NameOf(kelp, window);
  std::erase(kelp.Shown, screen);
  kelp.platform.ScreenHidden(screen);
}

void RaiseScreen(Kelp& kelp, Window& window) { ShowScreen(kelp, window); }

void SetStatus(Kelp& kelp, std::string_view text) {
  kelp.Status = text;
  kelp.frmAcquire.StatusBar1.Text = kelp.Warning + kelp.Status;
}

void SetWarning(Kelp& kelp, std::string_view warning) {
  if (kelp.Warning == warning) return;
  kelp.Warning = warning;
  SetStatus(kelp, std::string(kelp.Status));
}

bool AskYes(Kelp& kelp, const std::string& text, const std::string& title, Icon icon, Buttons buttons) {
  Message question{text, title, buttons, icon};
  question.DefaultNo = icon == Icon::Critical;
  return AskYes(kelp, question);
}

bool AskRisky(Kelp& kelp, const std::string& text, const std::string& title, Icon icon, Buttons buttons) {
  Message question{text, title, buttons, icon};
  question.DefaultNo = true;
  return AskYes(kelp, question);
}

bool AskYes(Kelp& kelp, const Message& question) { return kelp.platform.Ask(question) == Answer::Yes; }

void Tell(Kelp& kelp, const std::string& text, const std::string& title, Icon icon) {
  kelp.platform.Ask({text, title, Buttons::Ok, icon});
}

void ReportError(Kelp& kelp, const RunTimeError& error) {
  Message message;
  message.Title = ErrorName(error.kind());
  message.Text = message.Title + "\n" + error.what() + "\n";
  if (kelp.run.CsvFile.empty())
    message.Text += "No station is open.";
  else if (kelp.run.Stores == kelp.StoresBefore)
    message.Text += "All stored values are as they were; the run goes on.";
  else
    message.Text += "What was stored before that is kept: look through the values. The run goes on.";
  message.Icon = Icon::Critical;
  message.ReportsError = true;
  kelp.platform.Ask(message);
}

void EndProgram(Kelp& kelp) { kelp.Ended = true; }

}  // namespace kelp
