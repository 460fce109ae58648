// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/alarms.hpp"

#include <algorithm>

#include "acquire/offscale.hpp"
#include "core/numbers.hpp"
#include "core/start_button.hpp"
#include "core/text.hpp"

namespace kelp {

namespace {

bool Watched(const Kelp& kelp) { return kelp.loop.Running && !kelp.Ended && !IsPaused(kelp); }

bool LineIsLost(const Kelp& kelp) {
  return Watched(kelp) && kelp.loop.PortOpened && !kelp.platform.PortIsOpen();
}

bool LineIsSilent(const Kelp& kelp) { return Watched(kelp) && kelp.loop.Silent; }

}  // namespace

int ReadingAge(const Kelp& kelp) {
  if (!LineIsLost(kelp) && !LineIsSilent(kelp)) return -1;
  return static_cast<int>((kelp.platform.Milliseconds() - kelp.loop.LastReadingAt) / 1000);
}

// Without the age, which stands beside the reading: a band that changed every second would be drawn as often.
std::vector<Alarm> AlarmsOf(const Kelp& kelp) {
  std::vector<Alarm> alarms;
  if (!kelp.Warning.empty()) {
    std::string warning(Trim(kelp.Warning));
    while (!warning.empty() && (warning.back() == '.' || warning.back() == ':' || warning.back() == ' '))
      warning.pop_back();
    alarms.push_back({AlarmKind::Unsafe, warning + ". Free space on the disk or plug it in."});
  }
  if (LineIsLost(kelp))
    alarms.push_back(
        {AlarmKind::LineLost, "SERIAL LINE LOST: look at cable and power; it is tried every second."});
  else if (LineIsSilent(kelp))
    alarms.push_back({AlarmKind::Silent, "NO READINGS: look at the fluorometer and its cable."});
  if (kelp.loop.Running && IsOffscale(kelp, static_cast<float>(Val(kelp.run.LastRawText))))
    alarms.push_back({AlarmKind::Offscale, "OFF SCALE: " + kelp.run.LastRawText +
                                               " is above the instrument's limit. Dilute the sample 50 %."});
  if (!kelp.LogTrouble.empty())
    alarms.push_back({AlarmKind::LogNotWritten, "READ LOG NOT WRITTEN: " + kelp.LogTrouble});
  return alarms;
}

bool AlarmCall::Listen(const std::vector<Alarm>& alarms) {
  now_.clear();
  for (const Alarm& alarm : alarms) now_.push_back(alarm.Kind);
  const auto has = [](const std::vector<AlarmKind>& kinds, AlarmKind kind) {
    return std::find(kinds.begin(), kinds.end(), kind) != kinds.end();
  };
  std::erase_if(seen_, [&](AlarmKind kind) { return !has(now_, kind); });
  calling_ = std::any_of(now_.begin(), now_.end(), [&](AlarmKind kind) { return !has(seen_, kind); });
  return calling_;
}

void AlarmCall::Seen() {
  seen_ = now_;
  calling_ = false;
}

}  // namespace kelp
