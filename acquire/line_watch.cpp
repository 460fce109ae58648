// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquire/line_watch.hpp"

#include "core/config.hpp"

namespace kelp {

namespace {

constexpr std::int64_t kRetryAfter = 1000;
constexpr std::int64_t kSilentAfter = 5000;

void TryAgain(Kelp& kelp, std::int64_t now) {
  ReadLoopState& loop = kelp.loop;
  if (now - loop.LastTryAt < kRetryAfter) return;
  loop.LastTryAt = now;
  const int port = CfgInt16(kelp.run, kCfgComport);
  const std::string trouble = kelp.platform.OpenPort(port, CfgValue(kelp.run, kCfgPortSettings));
  loop.Silent = true;
  if (trouble.empty()) {
    // What came before the line was lost is no start of what comes now.
    loop.Accumulator.clear();
    SetStatus(kelp, "Serial line open again, waiting for a reading...");
  } else {
    SetStatus(kelp, "Serial line lost, trying again every second: " + trouble);
  }
}

}  // namespace

void StartLineWatch(Kelp& kelp) {
  kelp.loop.LastReadingAt = kelp.platform.Milliseconds();
  kelp.loop.LastNoticeAt = kelp.loop.LastReadingAt;
}

void NoteReading(Kelp& kelp) {
  kelp.loop.LastReadingAt = kelp.platform.Milliseconds();
  kelp.loop.LastNoticeAt = kelp.loop.LastReadingAt;
  if (!kelp.loop.Silent) return;
  kelp.loop.Silent = false;
  SetStatus(kelp, "Readings are coming in.");
}

void WatchLine(Kelp& kelp) {
  ReadLoopState& loop = kelp.loop;
  const std::int64_t now = kelp.platform.Milliseconds();
  if (loop.PortOpened && !kelp.platform.PortIsOpen()) {
    TryAgain(kelp, now);
    return;
  }
  if (now - loop.LastReadingAt < kSilentAfter || (loop.Silent && now - loop.LastNoticeAt < 1000)) return;
  loop.Silent = true;
  loop.LastNoticeAt = now;
  SetStatus(kelp, "No reading for " + std::to_string((now - loop.LastReadingAt) / 1000) +
                      " s. Check the fluorometer and its cable.");
}

}  // namespace kelp
