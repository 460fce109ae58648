// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/kelp.hpp"

#include <algorithm>

#include "core/text.hpp"

namespace kelp {

Window* FindWindow(Kelp& kelp, std::string_view screen) {
  Window* found = nullptr;
  VisitScreens(kelp, [&](std::string_view name, auto& candidate) {
    if (SameIgnoringCase(name, screen)) found = &candidate.Form;
  });
  return found;
}

void ShowScreen(Kelp& kelp, std::string_view screen) {
  Window* window = FindWindow(kelp, screen);
  const bool wasVisible = window->Visible;
  window->Loaded = true;
  window->Visible = true;
  std::erase(kelp.Shown, screen);
  kelp.Shown.emplace(kelp.Shown.begin(), screen);
  if (wasVisible)
    kelp.platform.ScreenRaised(std::string(screen));
  else
    kelp.platform.ScreenShown(std::string(screen));
}

void HideScreen(Kelp& kelp, std::string_view screen) {
  Window* window = FindWindow(kelp, screen);
  if (!window->Visible) return;
  window->Visible = false;
  std::erase(kelp.Shown, screen);
  kelp.platform.ScreenHidden(std::string(screen));
}

void RaiseScreen(Kelp& kelp, std::string_view screen) { ShowScreen(kelp, screen); }

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
