// SPDX-License-Identifier: GPL-3.0-or-later
// The configuration file: what is read, what the operator is asked when it is missing, what a station
// writes back.
#include <gtest/gtest.h>

#include "stage/program.hpp"

namespace kelp {

TEST(Config, OnlyTheFirst30CharactersOf41NonBlankLinesCount) {
  Program program;
  std::string content = "\r\n" + std::string(29, 'a') + "bX    00 - Cruise\r\n   \r\n";
  for (int i = 1; i < 45; ++i) content += std::to_string(i) + "\n";
  program.disk.Files["c:\\kelp\\kelp.cfg"] = content;
  LoadConfig(program.kelp);
  EXPECT_EQ(CfgValue(program.run(), 0), std::string(29, 'a') + "b");
  EXPECT_EQ(program.run().CfgLines[40], "40");
  program.disk.Files["c:\\kelp\\kelp.cfg"] = "only\r\ntwo";
  LoadConfig(program.kelp);
  EXPECT_EQ(CfgValue(program.run(), 1), "two");
  EXPECT_EQ(CfgNumber(program.run(), 13), 0);
}

TEST(Config, AnUnreadableFileKeepsTheSettingsInMemory) {
  Program program;
  Start(program.kelp);
  program.disk.Files.erase("c:\\kelp\\kelp.cfg");
  program.disk.Folders.insert("c:\\kelp\\kelp.cfg");
  program.Answers({Answer::Ok});
  program.Click("frmMain", "Command1", 5);
  EXPECT_NE(program.LastBox().find("c:\\kelp\\kelp.cfg: is a folder"), std::string::npos);
  EXPECT_EQ(CfgValue(program.run(), 0), "0707SL");
}

TEST(Config, AMissingFileIsLookedForOrMadeFromTheTemplate) {
  Program program;
  const std::string written = program.disk.Files["c:\\kelp\\kelp.cfg"];
  program.disk.Files.clear();
  program.disk.Files["c:\\old.cfg"] = "0901CM\r\n";
  program.Answers({Answer::Yes, Answer::Yes, Answer::Ok});
  program.platform.QueueFile("c:\\old.cfg");
  program.platform.QueueFile({});
  LoadConfig(program.kelp);
  EXPECT_EQ(CfgValue(program.run(), 0), "0901CM");
  EXPECT_EQ(program.disk.Files.size(), 1U) << "the chosen file is read in place, not copied";
  LoadConfig(program.kelp);
  EXPECT_EQ(program.LastBox(),
            "Unable to find kelp.cfg!  One will be created after you fill-out the StaInfo form.");
  EXPECT_EQ(program.disk.Files["c:\\kelp\\kelp.cfg"], written);
}

TEST(Config, AStationThatCannotWriteOneOfItsValuesWritesNone) {
  Program program;
  program.run().ProcNum = "008";
  program.run().CfgLines[27] = "R";  // a line that lost its width
  const std::string written = program.disk.Files["c:\\kelp\\kelp.cfg"];
  EXPECT_THROW(SaveStationConfig(program.kelp), RunTimeError);
  EXPECT_EQ(program.disk.Files["c:\\kelp\\kelp.cfg"], written);
  EXPECT_EQ(CfgValue(program.run(), kCfgProcNum), "1");
}

}  // namespace kelp
