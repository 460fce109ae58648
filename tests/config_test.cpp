// The configuration file: what is read, what the operator is asked when it is missing, what a station
// writes back.
#include <gtest/gtest.h>

#include "tests/support/program.hpp"

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
  program.Answers({Answer::Yes});
  program.platform.QueueFile("c:\\old.cfg");
  LoadConfig(program.kelp);
  EXPECT_EQ(CfgValue(program.run(), 0), "0901CM");
  EXPECT_EQ(program.disk.Files.size(), 1U) << "the chosen file is read in place, not copied";

  program.Answers({Answer::Yes, Answer::Ok});
  program.platform.QueueFile({});
  LoadConfig(program.kelp);
  EXPECT_EQ(program.LastBox(),
            "Unable to find kelp.cfg!  One will be created after you fill-out the StaInfo form.");
  EXPECT_EQ(program.disk.Files["c:\\kelp\\kelp.cfg"], written);

  program.disk.Files.clear();
  program.Answers({Answer::No, Answer::Ok});
  LoadConfig(program.kelp);
  EXPECT_EQ(program.LastBox(), "Kelp.cfg will be created after you fill-out the StaInfo boxes.");
  EXPECT_EQ(program.disk.Files["c:\\kelp\\kelp.cfg"], written);
  EXPECT_EQ(Lines(written).size(), 41U);
  EXPECT_EQ(Lines(written)[14], "0.0010                             14 - Standard deviation");
}

TEST(Config, AStationWritesItsRunningValuesOverTheFirstCharacters) {
  Program program;
  auto& box = program.form().txtStaInfo;
  program.run().ProcNum = "007";
  program.run().TubeNum = 19;
  program.run().RunDate = "11/24/2026,03:10:00";
  box[1].Text = " 93.3 70 ";
  box[9].Text = "11/23/2026";
  box[10].Text = "22:00:00";
  program.form().Combo1.Text = "RM";
  SaveStationConfig(program.kelp);
  const auto line = [&](int i) {
    return Lines(program.disk.Files["c:\\kelp\\kelp.cfg"])[static_cast<std::size_t>(i)];
  };
  EXPECT_EQ(line(21), Padded("008", 35, "R", "S") + "21 - Proc #    (required for importing sta info)");
  EXPECT_EQ(Left(line(22), 37), Padded("93.3 70", 35, "R", "S") + "22");
  EXPECT_EQ(Left(line(25), 37), Padded("11/23/2026 22:00:00", 35, "R", "S") + "25");
  EXPECT_EQ(Left(line(26), 37), Padded("11/24/2026,03:10:00", 35, "R", "S") + "26");
  EXPECT_EQ(Left(line(27), 37), Padded("RM", 35, "R", "S") + "27");
  EXPECT_EQ(Left(line(28), 37), Padded(" 19", 35, "R", "S") + "28");
  EXPECT_EQ(program.form().Text4.Text, "Saving Station 007");

  program.run().ProcNum = "990";
  program.run().TubeNum = 40;
  SaveStationConfig(program.kelp);
  EXPECT_EQ(Left(line(21), 3), "008") << "numbers from 990 on advance nothing";
  EXPECT_EQ(Left(line(28), 3), " 19");

  program.run().ProcNum = "008";
  program.run().CfgLines[27] = "R";
  EXPECT_THROW(SaveStationConfig(program.kelp), RunTimeError) << "a line that lost its width";
  EXPECT_EQ(Left(line(21), 3), "008") << "a failed rewrite leaves every line";
  EXPECT_EQ(Left(program.run().CfgLines[21], 3), "008");
}

}  // namespace kelp
