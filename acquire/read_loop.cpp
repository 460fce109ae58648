// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquire/read_loop.hpp"

#include <algorithm>

#include "acquire/averaging.hpp"
#include "acquire/captions.hpp"
#include "acquire/line_watch.hpp"
#include "acquire/parser.hpp"
#include "core/captions.hpp"
#include "core/config.hpp"
#include "core/numbers.hpp"
#include "core/text.hpp"

namespace kelp {

namespace {

// True when the text that was waiting completed a reading.
bool TakeWaitingText(Kelp& kelp) {
  ReadLoopState& loop = kelp.loop;
  loop.Accumulator += kelp.platform.ReadWaiting();
  const bool complete = HoldsReading(loop.Accumulator);
  if (complete) {
    kelp.frmAcquire.Text1.Text = loop.Accumulator.substr(std::min<std::size_t>(2, loop.Accumulator.size()));
    const float reading = ReadingIn(loop.Accumulator);
    NoteReading(kelp);
    // The text is used up even when the reading's arithmetic fails: it must not be read twice.
    try {
      TakeReading(kelp, reading);
    } catch (const RunTimeError&) {
      DropRead(loop.Accumulator);
      throw;
    }
  } else {
    BoundAccumulator(loop.Accumulator);
  }
  kelp.frmAcquire.txtStats[0].Text = std::to_string(int{kelp.run.ReadCount});
  return complete;
}

}  // namespace

void StartReadLoop(Kelp& kelp) {
  ReadLoopState& loop = kelp.loop;
  if (!loop.Running) loop.Accumulator.clear();
  loop.Running = true;
  loop.StopFlag = false;
  loop.Sd = 0;
  loop.UpperLimit = static_cast<float>(CfgNumber(kelp.run, kCfgUpperLimit, 6));
  ClearRawReads(kelp.run);
  kelp.run.ReadFlag = false;
  kelp.run.ReadInProgress = false;
  StartLineWatch(kelp);
}

bool ReadPass(Kelp& kelp) {
  ReadLoopState& loop = kelp.loop;
  if (kelp.frmAcquire.Command1.Caption == captions::kStart || loop.StopFlag) {
    loop.Running = false;
    return false;
  }
  const bool tookReading = kelp.platform.BytesWaiting() > 0 && TakeWaitingText(kelp);
  if (!tookReading) WatchLine(kelp);
  UpdateInstruction(kelp);
  return kelp.frmAcquire.Check1.Value;
}

bool OpenSerialPort(Kelp& kelp) {
  if (kelp.platform.PortIsOpen()) kelp.platform.ClosePort();
  const int number = CfgInt16(kelp.run, kCfgComport);
  const std::string trouble = kelp.platform.OpenPort(number, CfgValue(kelp.run, kCfgPortSettings));
  if (trouble.empty()) {
    kelp.loop.PortOpened = true;
    return true;
  }
  SetStatus(kelp, trouble);
  Tell(kelp, " CommPort" + std::to_string(number) + " is not talking, fix then restart.");
  return false;
}

}  // namespace kelp
