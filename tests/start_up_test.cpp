// Main window, login, create screen, set-up of the acquisition screen, configuration editor.
#include <gtest/gtest.h>

#include "tests/support/program.hpp"

namespace kelp {

namespace {

const std::string kChl = "q:\\vault\\2007\\0707\\chl\\";

std::string ConfigLine(Program& program, std::size_t line) {
  return Lines(program.disk.Files[Lower(kConfigPath)])[line];
}

}  // namespace

TEST(StartUp, TheMainWindowShowsTheLastStationAndReloadsWithOtherWidths) {
  Program program;
  program.Configure(kCfgRunDate, "11/23/2026,22:10:00x");
  program.Configure(kCfgFiltration, "11/23/2026 21:00:00");
  Start(program.kelp);
  EXPECT_EQ(program.kelp.frmMain.Text1[3].Text, "11/23/2026,22:10:00x");
  EXPECT_EQ(program.run().CtdTime, "21:00:00");
  program.Answers({Answer::Ok});
  program.Click("frmMain", "Command1", 5);
  EXPECT_EQ(program.kelp.frmMain.Text1[3].Text, "11/23/2026");
  EXPECT_EQ(program.LastBox(), "New kelp.cfg loaded.");
  program.Click("frmMain", "Command1", 3);
  program.platform.QueueFile("Q:\\vault\\2007\\0707\\chl\\chl001.raw");
  program.Click("frmMain", "Command1", 2);
  program.platform.QueueFile({});
  program.Click("frmMain", "Command1", 2);
  EXPECT_EQ(program.platform.Launched,
            (std::vector<std::string>{"notepad Q:\\vault\\2007\\0707\\chl\\0707SLblnk",
                                      "notepad Q:\\vault\\2007\\0707\\chl\\chl001.raw"}));
  program.Answers({Answer::Cancel, Answer::Yes});
  program.Click("frmMain", "Command1", 4);
  EXPECT_FALSE(program.kelp.Ended);
  Post(program.kelp, {.Kind = EventKind::Close, .Place = {"frmMain"}});
  EXPECT_TRUE(program.kelp.Ended) << "the window's frame asks the same question";
}

TEST(StartUp, ASecondCopyOnTheSameDrivesStartsNoRun) {
  Program program;
  program.disk.AnotherCopyRuns = true;
  Start(program.kelp);
  program.Answers({Answer::Ok, Answer::Ok});
  program.Click("frmMain", "Command1", 0);
  program.Click("frmMain", "Command1", 1);
  program.Click("frmEditCFG", "Command1", 1);
  EXPECT_EQ(program.platform.Boxes.size(), 2U);
  EXPECT_TRUE(StartsWith(program.LastBox(), "Another copy of KElp is running on these drives"));
  EXPECT_EQ(program.kelp.Shown, std::vector<std::string>{"frmMain"});
}

TEST(StartUp, ALoginNeedsInitialsAndLeadsToAStationThatIsSetUp) {
  Program program;
  program.Configure(kCfgProcNum, "9");
  Start(program.kelp);
  program.Click("frmMain", "Command1", 0);
  EXPECT_EQ(program.kelp.Shown, std::vector<std::string>{"frmLogin"});
  EXPECT_EQ(program.kelp.frmLogin.Combo1.Text, "TQB");
  program.Type("frmLogin", "Combo1", -1, "");
  program.Answers({Answer::Ok});
  program.Click("frmLogin", "cmdOK");
  EXPECT_EQ(program.LastBox(), "Invalid User Name, try again!");
  program.Type("frmLogin", "Combo1", -1, " ");
  program.Answers({Answer::Cancel, Answer::Yes});
  program.Click("frmLogin", "cmdOK");
  EXPECT_EQ(program.platform.Boxes[1].message.Text,
            "Q:\\vault\\2007\\0707\\chl\\chl010 not found!  Yes to create file, No to search, Cancel to load "
            "next sta.");
  EXPECT_EQ(program.kelp.frmCreateBase.Text1[0].Text, "011");
  program.Type("frmCreateBase", "Text1", 1, "93.3 70 CALibration");
  program.Type("frmCreateBase", "Text1", 2, "101");
  program.Answers({Answer::Ok});
  program.Click("frmCreateBase", "cmdCreateBase", 0);
  EXPECT_EQ(program.LastBox(), "Max number of samples is 100!");
  program.Type("frmCreateBase", "Text1", 2, "2");
  program.Type("frmCreateBase", "Text1", 3, "99");
  program.Type("frmCreateBase", "Text1", 4, "21");
  for (const char* bad : {"..\\x", "a/b", " "}) {
    program.Type("frmCreateBase", "Text1", 0, bad);
    program.Answers({Answer::Ok});
    program.Click("frmCreateBase", "cmdCreateBase", 0);
    EXPECT_NE(program.LastBox().find("can't be part of a file name"), std::string::npos) << bad;
  }
  program.Type("frmCreateBase", "Text1", 0, "7");
  program.Click("frmCreateBase", "cmdCreateBase", 0);
  EXPECT_EQ(program.disk.Files[kChl + "chl007"],
            "93.3 70 CALibration\r\nZEPHOR\r\n0.0 0.0 0.0 0.0\r\n0.0 0.0 0.0 0.0\r\n007   2 0.00987 2.011\r\n"
            "2 99    3  138 8 \r\n2 100    3  138 8 \r\n");
  EXPECT_EQ(program.cell(1, kColVial) + program.cell(2, kColVial) + program.cell(2, kColBottle), "2122100");
  EXPECT_TRUE(program.run().LabCalRun);
  EXPECT_EQ(program.form().Frame1.Caption, "Fluorometer ZEPHOR");
  EXPECT_EQ(program.form().lblBlank[7].Caption, "Copro 3-1 End");
  EXPECT_EQ(program.form().lblStaInfo[13].Caption, "Ave2-5");
  EXPECT_EQ(program.form().Combo1.Text, " ");
  EXPECT_EQ(program.kelp.Shown, std::vector<std::string>{"frmAcquire"});
}

TEST(StartUp, TheBackupFolderGetsItsPlaceholder) {
  Program fresh;
  fresh.OpenStation(1);
  EXPECT_EQ(fresh.disk.Files["d:\\backup\\readme.txt"],
            "Do not delete this file, it is used as a placeholder for kelp.exe.\r\n");
  Program emptied;
  emptied.Configure(kCfgBackupDir, "D:\\backup");
  emptied.disk.Folders.insert("d:\\backup");
  emptied.Answers({Answer::Ok});
  emptied.OpenStation(1);
  EXPECT_EQ(emptied.platform.Boxes[0].message.Text,
            " Kelp Local Backup dir:D:\\backup\\ does not contain a readme.txt file. Click OK to fix.");
  EXPECT_EQ(emptied.disk.Files["d:\\backup\\readme.txt"],
            "Necessary file position holder, do not delete or move!\r\n");
  EXPECT_EQ(emptied.run().TmpFile, "D:\\backup\\chl002.tmp");
  Program broken;  // the backup drive is gone: told in the words of the port failure, and the run goes on
  broken.disk.FailBelow = "d:\\";
  broken.Answers({Answer::Ok, Answer::Ok});
  broken.OpenStation(1);
  EXPECT_EQ(broken.platform.Boxes[1].message.Text, " CommPort 1 is not talking, fix then restart.");
  EXPECT_EQ(broken.run().TmpFile, "C:\\kelp\\0707SLchl002.tmp");
  EXPECT_EQ(broken.run().RawReads.size(), 10U);
}

TEST(Editor, WritesBoxesOf34CharactersAndKeepsTheRestOfEachLine) {
  Program program;
  Start(program.kelp);
  program.run().ProcNum = "007";
  program.Click("frmMain", "Command1", 1);
  const auto type = [&](int line, const std::string& text) {
    program.Type("frmEditCFG", "Text1", 200 + line, text);
  };
  const auto update = [&] {
    program.Answers({Answer::Ok});
    program.Click("frmEditCFG", "Command1", 0);
    EXPECT_EQ(program.LastBox(), "C:\\KElp\\kelp.cfg updated.");
  };
  type(1, "Coral Meridian of the Southern Sea");
  type(2, "");
  type(20, std::string(40, 'x'));
  program.Click("frmEditCFG", "Option1", 1);
  update();
  update();
  EXPECT_EQ(ConfigLine(program, 1), "Coral Meridian of the Southern Sea 01 - Ship");
  EXPECT_EQ(Left(ConfigLine(program, 2), 25), "TQB RMV KPD HNL WGE FX ZC") << "an empty box leaves its line";
  EXPECT_EQ(
      ConfigLine(program, 17),
      "AVErent                            17 - Default Blank Values to save in data file (Current or Ave)");
  // A longer text is written whole, and moves the rest of the line along each time.
  EXPECT_EQ(ConfigLine(program, 20), std::string(46, 'x') + " 20 - Starting Bottle Number (usually 7)");
  EXPECT_EQ(ConfigLine(program, 33),
            "47                                 33 - Upper fluorometer limit,change if max "
            "reading differs");
  EXPECT_EQ(Lines(program.disk.Files["c:\\kelp\\kelp.007"]).size(), 82U) << "a snapshot before each update";
  EXPECT_EQ(CfgValue(program.run(), 1), "Coral Meridian of the Southern");
  // The average option is shown by line 18, not by line 17 that it writes.
  program.Click("frmMain", "Command1", 1);
  EXPECT_TRUE(program.kelp.frmEditCFG.Option1[0].Value);
  program.run().CfgLines[5] = "short";
  program.Answers({Answer::Ok});
  program.Click("frmEditCFG", "Command1", 0);
  EXPECT_EQ(program.platform.Boxes.back().message.Title, "Invalid procedure call");
}

TEST(Editor, ANewCruiseIsOfferedToEveryBoxAndCancelShowsTheAcquisitionScreen) {
  Program program;
  Start(program.kelp);
  program.Click("frmMain", "Command1", 1);
  program.Answers({Answer::Yes});
  program.Type("frmEditCFG", "Text1", 200, "0901CM");
  EXPECT_EQ(program.platform.Boxes.back().message.Title, "Change Cruise Everywhere?");
  EXPECT_EQ(program.kelp.frmEditCFG.Text1[203].Text, "Q:\\vault\\2007\\0901\\chl\\");
  program.Answers({Answer::No});
  program.Type("frmEditCFG", "Text1", 200, "0801CM");
  EXPECT_EQ(program.kelp.frmEditCFG.Text1[203].Text, "Q:\\vault\\2007\\0901\\chl\\");
  program.Click("frmEditCFG", "Command1", 1);
  EXPECT_EQ(CfgValue(program.run(), 0), "0707SL") << "nothing is saved";
  EXPECT_TRUE(program.form().Form.Visible);
  EXPECT_EQ(program.kelp.Shown.front(), "frmLogin") << "no station is open yet";
}

}  // namespace kelp
