// SPDX-License-Identifier: GPL-3.0-or-later
// Stations that a crash interrupts, and the program that starts again on the same disk.
#pragma once

#include <gtest/gtest.h>

#include "record/record.hpp"
#include "tests/support/finished_station.hpp"

namespace kelp {

inline const std::string kRecord = "c:\\kelp\\record.db";
inline const std::string kBase002 = "q:\\vault\\2007\\0707\\chl\\chl002";

inline void TakeByHand(Program& program, double value) {
  program.Click("frmAcquire", "Command1");
  program.Read(value, 10);
  program.Click("frmAcquire", "Command1");
}

// Blank and copros, sample 1 read, sample 2 skipped with a remark, the Rb of sample 3: then the power goes.
inline void RunUntilPowerCut(Program& program) {
  program.OpenStation(4);
  program.Click("frmAcquire", "Command1");
  for (const double value : {0.005, 1.53, 5.03, 2.0, 1.0}) TakeByHand(program, value);
  program.Key("frmAcquire", kKeyF1 + 8);
  program.Type("dlgRunRem", "Text1", -1, "torn filter*, 50% left");
  program.Click("dlgRunRem", "Option1", 3);
  program.Click("dlgRunRem", "OKButton");
  Tick(program.kelp);
  program.Click("frmAcquire", "Command5");
  program.Click("frmAcquire", "Command1");
  program.Read(3.0, 10);
  program.Click("frmAcquire", "Command1");
  ASSERT_EQ(program.caption(), "Acidify");
}

// The program that starts again on this disk.
struct Resumed : Program {
  explicit Resumed(const MemoryDisk& left, std::initializer_list<Answer> answers = {Answer::Yes}) {
    LogIn(answers, &left);
  }
};

inline void ExpectSameValues(Program& again, Program& before) {
  ExpectSameGrid(again, before);
  for (int box = 0; box < 10; ++box)
    EXPECT_EQ(again.form().txtBlank[box].Text, before.form().txtBlank[box].Text) << box;
}

inline bool Unsafe(Program& program) {
  EXPECT_EQ(program.kelp.record.Unsafe,
            StartsWith(program.form().StatusBar1.Text, "READINGS ARE NOT SAFE ON THE DISK"));
  return program.kelp.record.Unsafe;
}

// Ends the first station, and the program dies in the second one before its first reading.
inline void RunIntoSecondStation(Program& program) {
  program.disk.Files[kBase002.substr(0, kBase002.size() - 1) + "3"] =
      "90.90 80\r\nZEPHOR\r\n0.0 0.0 0.0 0.0\r\n0.0 0.0 0.0 0.0\r\n003   1 0.00987 2.011\r\n2 07    3  138 8 "
      "\r\n";
  program.OpenStation(1);
  program.Click("frmAcquire", "Command1");
  for (const double value : {0.005, 1.53, 5.03, 2.0, 1.0}) TakeByHand(program, value);
  program.Click("frmWhatsNext", "Option1", 0);
  program.Click("frmWhatsNext", "NextButton");
  ASSERT_EQ(program.run().ProcNum, "003");
}

}  // namespace kelp
