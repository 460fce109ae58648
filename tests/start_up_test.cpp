// SPDX-License-Identifier: GPL-3.0-or-later
// Main window, login, create screen, set-up of the acquisition screen.
#include <gtest/gtest.h>

#include "stage/program.hpp"

namespace kelp {

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
  program.Click("frmMain", "Command1", 1);
  program.Click("frmEditCFG", "Command1", 1);
  EXPECT_EQ(program.kelp.Shown.front(), "frmLogin") << "by the editor as by the button";
  program.Click("frmMain", "Command1", 0);
  EXPECT_EQ(program.kelp.frmLogin.Combo1.Text, "TQB");
  program.Type("frmLogin", "Combo1", -1, "");
  program.Answers({Answer::Ok, Answer::Cancel, Answer::Yes});
  program.Click("frmLogin", "cmdOK");
  EXPECT_EQ(program.LastBox(), "Invalid User Name, try again!");
  program.Type("frmLogin", "Combo1", -1, " ");
  program.Click("frmLogin", "cmdOK");
  EXPECT_EQ(program.kelp.frmCreateBase.Text1[0].Text, "011") << "after a Cancel of 010";
  const auto create = [&](int box, const char* text, const char* trouble) {
    program.Type("frmCreateBase", "Text1", box, text);
    program.Answers({Answer::Ok});
    program.Click("frmCreateBase", "cmdCreateBase", 0);
    EXPECT_TRUE(Contains(program.LastBox(), trouble)) << program.LastBox();
  };
  program.Type("frmCreateBase", "Text1", 1, "93.3 70 CALibration");
  create(2, "101", "Max number of samples is 100!");
  program.Type("frmCreateBase", "Text1", 2, "2");
  program.Type("frmCreateBase", "Text1", 3, "99");
  program.Type("frmCreateBase", "Text1", 4, "21");
  for (const char* bad : {"..\\x", "a/b", " "}) create(0, bad, "can't be part of a file name");
  program.Type("frmCreateBase", "Text1", 0, "7");
  program.Click("frmCreateBase", "cmdCreateBase", 0);
  EXPECT_EQ(program.cell(1, kColVial) + program.cell(2, kColVial) + program.cell(2, kColBottle), "2122100");
  EXPECT_TRUE(program.run().LabCalRun);
  EXPECT_EQ(program.form().Frame1.Caption, "Fluorometer ZEPHOR");
  EXPECT_EQ(program.form().lblBlank[7].Caption, "Copro 3-1 End");
  EXPECT_EQ(program.form().lblStaInfo[13].Caption, "Ave2-5");
  EXPECT_EQ(program.kelp.Shown, std::vector<std::string>{"frmAcquire"});
}

TEST(StartUp, TheBackupFolderGetsItsPlaceholder) {
  Program emptied;
  emptied.Configure(kCfgBackupDir, "D:\\backup");
  emptied.disk.Folders.insert("d:\\backup");
  emptied.Answers({Answer::Ok});
  emptied.OpenStation(1);
  EXPECT_EQ(emptied.platform.Boxes[0].message.Text,
            " Kelp Local Backup dir:D:\\backup\\ does not contain a readme.txt file. Click OK to fix.");
  EXPECT_EQ(emptied.disk.Files["d:\\backup\\readme.txt"],
            "Necessary file position holder, do not delete or move!\r\n");
  Program broken;  // the backup drive is gone: told in the words of the port failure, and the run goes on
  broken.disk.FailBelow = "d:\\";
  broken.Answers({Answer::Ok, Answer::Ok});
  broken.OpenStation(1);
  EXPECT_EQ(broken.platform.Boxes[1].message.Text, " CommPort 1 is not talking, fix then restart.");
  EXPECT_EQ(broken.run().TmpFile, "C:\\kelp\\0707SLchl002.tmp");
  EXPECT_EQ(broken.run().RawReads.size(), 10U);
}

TEST(CreateScreen, MarksWhatDeservesASecondLookAndWritesTimesOut) {
  Program desk;
  desk.LogIn({Answer::Yes});
  auto& box = desk.kelp.frmCreateBase.Text1;
  EXPECT_NE(box[2].Problem, "") << "marked before anything was typed";
  struct Row {
    int box;
    const char* typed;
    bool marked;
    const char* written;
  };
  const Row rows[] = {{2, "0", true, "0"},
                      {2, "12", false, "12"},
                      {6, "9:40", false, "09:40:00"},
                      {6, "9:40 pm", false, "21:40:00"},
                      {6, "25:40", true, "25:40"},
                      {6, "noon", true, "noon"},
                      {5, "31/12/2026", true, "31/12/2026"},
                      {5, "", false, ""},
                      {6, "21:40:10", false, "21:40:10"}};
  for (const Row& row : rows) {
    desk.Type("frmCreateBase", "Text1", row.box, row.typed);
    EXPECT_EQ(!box[row.box].Problem.empty(), row.marked) << row.typed;
    EXPECT_EQ(box[row.box].Text, row.written);
  }
  box[6].Text = "7:05";
  box[2].Text = "";
  desk.Click("frmCreateBase", "cmdCreateBase", 0);
  EXPECT_EQ(desk.form().txtStaInfo[kStaFiltTime].Text, "07:05:00");
  EXPECT_EQ(int{desk.run().SampCount}, 0) << "no samples stay allowed";
}

}  // namespace kelp
