// The measurement steps: when a value may be saved, what is asked before, and where the run goes next.
#include <gtest/gtest.h>

#include "tests/support/program.hpp"

namespace kelp {

namespace {

constexpr const char* kWait = "Wait! Read minimum number of reads before save...";

struct Station : Program {
  explicit Station(int samples = 2, bool autoread = true) {
    OpenStation(samples);
    Click("frmAcquire", "Command1");
    if (autoread) Click("frmAcquire", "Check1");
  }
  void Load() { Click("frmAcquire", "Command1"); }
  /// Loads the item that the button asks for and reads it until it is saved.
  void Take(double value, int reads = 10) {
    Load();
    Read(value, reads);
  }
  /// Begin blank and both copros, so that the first sample is asked for.
  void ToSamples() {
    Take(0.005);
    Take(1.530);
    Take(5.030);
    ASSERT_EQ(caption(), "Load 1st Sample");
  }
};

}  // namespace

TEST(Steps, AutoreadLeadsFromBlankToTheLastSampleAndStoresEveryValue) {
  Station program;
  program.ToSamples();
  EXPECT_EQ(program.form().txtBlank[kBoxBeginBlank].Text, "0.0050");
  EXPECT_EQ(program.form().txtBlank[kBoxCopro1].Text, "1.5300");
  EXPECT_EQ(program.form().txtBlank[kBoxCopro2].Text, "5.0300");
  EXPECT_EQ(program.run().SampTbl(2, 0), "0.0050");
  for (int sample = 1; sample <= 2; ++sample) {
    program.Take(2.0);
    EXPECT_EQ(program.caption(), "Acidify");
    EXPECT_EQ(program.form().Text4.Text, "ACIDIFY - ONE squirt 10% HCL using Repipettor");
    EXPECT_EQ(program.run().TraceColor, kTraceBlue);
    program.Read(1.0, 1);  // the average falls by a tenth of the step: acid is in
    EXPECT_EQ(program.caption(), "Acidified");
    Pass(program.kelp);
    EXPECT_EQ(program.caption(), "Reading Ra");
    EXPECT_EQ(program.form().Text4.Text, "When SD <= 0.0010, mean value will be saved.");
    program.ReadWithNoise(1.0, 14);
    EXPECT_EQ(program.caption(), "Save Ra") << "an Ra takes five reads more than the minimum";
    program.Read(1.0);
  }
  EXPECT_EQ(program.caption(), "What's Next");
  EXPECT_TRUE(program.kelp.frmWhatsNext.Form.Visible);
  EXPECT_EQ(program.run().SampTbl(5, kTblRb), "2.0000");
  EXPECT_EQ(program.run().SampTbl(6, kTblRa), "1.0000");
  EXPECT_EQ(program.cell(2, kColAcidR), "2.01");
  EXPECT_EQ(program.run().SampNum, 2);
  const std::string& log = program.disk.Files["d:\\backup\\chl002.tmp"];
  EXPECT_NE(log.find("2,07,3,138,8,,,2.0000,1.0000,,,,,,**\r\n"), std::string::npos) << log;
}

TEST(Steps, SavesByHandSkipTheQuestionsButNotTheMinimumOfReads) {
  Station program(1, false);
  program.Load();
  program.Read(0.5, 9);
  program.Load();  // "Read Blank": the loop runs already
  EXPECT_EQ(program.caption(), "Read Blank");
  program.Read(0.5);
  program.run().ReadCount = 9;
  program.Load();
  EXPECT_EQ(program.form().Text4.Text, kWait);
  program.Read(0.5);
  program.Load();
  EXPECT_EQ(program.run().BeginBlankText, "0.5000") << "far above the limit, but by hand";
  program.Take(3.0);
  program.Load();
  program.Take(9.0);
  program.Load();
  program.Take(0.1);
  EXPECT_EQ(program.caption(), "Save Rb");
  program.Load();
  EXPECT_EQ(program.run().SampTbl(5, kTblRb), "0.1000");
  program.Take(0.2);
  EXPECT_EQ(program.caption(), "Save Ra");
  program.Load();
  EXPECT_EQ(program.run().SampTbl(5, kTblRa), "0.2000") << "no five extra reads and no question by hand";
  EXPECT_EQ(program.form().Text4.Text,
            "Press F7 if the current reading is lower than saved then load the next Station Sample and click "
            "[Start] "
            "or press <Spacebar>.");
}

TEST(Steps, NothingIsSavedBeforeTheBufferIsFullWithFewerMinimumReads) {
  Station program(1);
  program.run().MinReads = 3;
  program.Load();
  program.Read(0.005, 9);
  EXPECT_EQ(program.caption(), "Save &Blank");
  program.Load();
  EXPECT_EQ(program.form().Text4.Text, kWait);
  EXPECT_EQ(program.run().BeginBlankText, "");
  program.Read(0.005);
  EXPECT_EQ(program.run().BeginBlankText, "0.0050");
}

TEST(Steps, TheBlankIsQuestionedAboveItsLimitAndBelow28) {
  struct Row {
    const char* fluorometer;
    double blank;
    const char* title;
  };
  static constexpr Row kRows[] = {
      {"ZEPHOR", 0.0100, ""}, {"ZEPHOR", 0.0101, "Current value > than0.010"},
      {"awolB", 0.0350, ""},  {"AWOL", 0.0351, "Current value > than0.035"},
      {"ZEPHOR", 0.0028, ""}, {"ZEPHOR", 0.00279, "Current value < than 0.0028!"}};
  for (const Row& row : kRows) {
    Program program;
    program.Configure(kCfgFluorometer, row.fluorometer);
    program.OpenStation(1);
    program.Click("frmAcquire", "Command1");
    program.Click("frmAcquire", "Check1");
    program.Click("frmAcquire", "Command1");
    const auto boxes = program.platform.Boxes.size();
    if (*row.title != '\0') program.Answers({Answer::No});
    program.platform.Feed("A =" + Padded(Fixed(row.blank, 5), 7, "L", "S") + " (RAW)");
    for (int i = 0; i < 9; ++i) {
      Pass(program.kelp);
      program.platform.Feed("A =" + Padded(Fixed(row.blank, 5), 7, "L", "S") + " (RAW)");
    }
    Pass(program.kelp);
    ASSERT_EQ(program.platform.Boxes.size() - boxes, *row.title != '\0' ? 1U : 0U) << row.blank;
    if (*row.title == '\0') continue;
    EXPECT_EQ(program.platform.Boxes.back().message.Title, row.title);
    EXPECT_EQ(program.caption(), "Load Blank");
    EXPECT_EQ(program.run().BeginBlankText, "");
    EXPECT_EQ(program.run().TraceColor, kTraceMagenta);
  }
}

TEST(Steps, CoprosAreComparedWithTheirAveragesAndARefusalAsksAgainAtTheNextReading) {
  Station program;
  program.Take(0.005);
  program.Load();
  program.Answers({Answer::No});
  program.Read(1.831, 10);
  for (int i = 0; i < 5; ++i) Pass(program.kelp);
  EXPECT_EQ(program.LastBox(), "Copro reading differs from average! Save anyways? Y/N");
  EXPECT_EQ(program.caption(), "Save 3-1");
  program.Answers({Answer::Yes});
  program.Read(1.831);
  EXPECT_EQ(program.form().txtBlank[kBoxCopro1].Text, "1.8310");
  EXPECT_EQ(
      program.form().Text4.Text,
      "Insert 2nd Copro Standard.\nWait for lcd \"OVER\" to become numeric \nthen press <pressbar> or click "
      "[Load...]");
  program.Take(5.530);  // 0.5 from the average: no question
  EXPECT_EQ(program.caption(), "Load 1st Sample");
}

TEST(Steps, StandardsAreComparedWithTheBlankAndLeadToTheSamplesOrToStandby) {
  Station program;
  program.Take(0.005);
  program.Click("frmAcquire", "Option1", kStepStandard);
  program.Load();
  program.Answers({Answer::Yes});
  program.Read(0.004, 10);
  EXPECT_EQ(program.LastBox(), "Low standard reading is too low! Save anyways? Y/N");
  EXPECT_EQ(program.form().txtBlank[kBoxLowStandard].Text, "0.0040");
  program.Take(8.0);
  EXPECT_EQ(program.form().txtBlank[kBoxHighStandard].Text, "8.0000");
  EXPECT_EQ(program.caption(), "Load 1st Sample");
  program.form().Option1[kStepStandard].Caption = "EndStnd";
  program.Click("frmAcquire", "Option1", kStepStandard);
  program.Take(0.5);
  program.Take(8.5);
  EXPECT_EQ(
      program.form().txtBlank[kBoxLowStandard + 1].Text + program.form().txtBlank[kBoxHighStandard + 1].Text,
      "0.50008.5000");
  EXPECT_EQ(program.caption(), "What's Next?");
  EXPECT_EQ(program.run().StepName, "STANDBY");
}

TEST(Steps, AnRbBelowTheBlankCountsOneReadAfterNoAndStaysOutOfTheTableAfterYes) {
  Station program;
  program.ToSamples();
  program.Load();
  program.Answers({Answer::No});
  program.Read(0.004, 10);
  EXPECT_EQ(program.LastBox(), "Average sample read is less than the blank! OK? Y/N");
  EXPECT_EQ(program.run().ReadCount, 1);
  program.Answers({Answer::Yes});
  program.Read(0.004, 9);
  EXPECT_EQ(program.caption(), "Acidify");
  EXPECT_EQ(program.cell(1, kColRb), "0.0040");
  EXPECT_EQ(program.run().SampTbl(5, kTblRb), "");
}

TEST(Steps, AnRaAboveRbWaitsIsQuestionedAndReadAnewAfterNo) {
  Station program;
  program.ToSamples();
  program.Take(1.0);
  program.Load();  // acid is in: the operator does not wait for the fall
  EXPECT_EQ(program.caption(), "Reading Ra");
  program.run().MinReads = 12;
  program.Read(1.2, 11);
  EXPECT_EQ(program.form().Text4.Text,
            "Ra greater than Rb... Wait...\nor press spacebar to accept Ra value.");
  EXPECT_LT(program.run().ReadCount, 3);
  program.Answers({Answer::No});
  program.ReadWithNoise(1.05, 26);
  EXPECT_EQ(program.LastBox(), "Ra > Rb! Do you want to save this value anyway? Y/N");
  EXPECT_EQ(program.cell(1, kColRa), "");
  program.ReadWithNoise(1.0, 26);
  EXPECT_EQ(program.cell(1, kColRa), "1.0000") << "equal to Rb is no question";
}

TEST(Steps, ADeadDiskNeverLosesAnAcceptedReading) {
  Station program;
  program.ToSamples();
  program.Take(2.0);
  program.Read(1.0);
  Pass(program.kelp);
  program.disk.FailBelow = "q:\\";
  program.Answers({Answer::Ok});
  program.ReadWithNoise(1.0, 15);
  EXPECT_NE(program.LastBox().find("chl002.csv: no space left"), std::string::npos) << program.LastBox();
  EXPECT_EQ(program.cell(1, kColRa), "1.0000");
  EXPECT_EQ(program.caption(), "Load Next Sample");
  EXPECT_EQ(program.run().SampNum, 2);
  program.Answers({Answer::Ok, Answer::Cancel});
  Tick(program.kelp);
  EXPECT_TRUE(StartsWith(program.LastBox(), "Unable to save read to file, fix filepath"));
  program.disk.FailBelow.clear();
  Tick(program.kelp);
  const auto lines = Lines(program.disk.Files["q:\\vault\\2007\\0707\\chl\\chl002.csv"]);
  EXPECT_EQ(lines.back(), "002,08,Load Next Sample," + program.run().RunDate + ",1.000,1.0000,,,,,,,1.000");
  EXPECT_EQ(lines.front(), "Sta,Samp,Step,Date,Time,Raw,Ave,RawRb,AveRb,AddAcid,AddAAve,RawRa,AveRa,Ave10");
}

TEST(Steps, APortThatDoesNotOpenBeginsNothing) {
  Program program;
  program.OpenStation(1);
  program.platform.LineDown();
  program.Answers({Answer::Ok});
  program.Click("frmAcquire", "Command1");
  EXPECT_EQ(program.LastBox(), " CommPort1 is not talking, fix then restart.");
  EXPECT_EQ(program.caption(), "&Start");
  program.platform.LineUp();
  program.Click("frmAcquire", "Command1");
  EXPECT_EQ(program.caption(), "Load Blank");
}

}  // namespace kelp
