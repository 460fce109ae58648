// Operator scripts: what each command does and prints, and how a script can end.
#include <gtest/gtest.h>

#include <sstream>

#include "console/script_own_time.hpp"
#include "console/script_player.hpp"
#include "tests/support/program.hpp"

namespace kelp {

namespace {

struct Played : Program {
  ScriptResult result;
  std::string output;

  explicit Played(const std::string& script) {
    OwnTimeHost host(kelp, platform);
    host.Printer = platform.Echo = [this](const std::string& line) { output += line + "\n"; };
    std::istringstream lines(script);
    result = ScriptPlayer(host).Play("-", lines);
  }
};

struct Row {
  std::string script;
  int status;
  std::string message;  ///< the last line on standard error
  std::string output = {};
};

// Every script of the rows is played behind `before`, whose own output is left out.
void PlayRows(const std::string& before, const std::vector<Row>& rows) {
  const std::string prelude = Played(before).output;
  const auto lines = std::count(before.begin(), before.end(), '\n');
  for (const Row& row : rows) {
    SCOPED_TRACE(row.script);
    const Played played(before + row.script);
    EXPECT_EQ(static_cast<int>(played.result.status), row.status);
    const std::string message =
        row.message.empty() ? ""
                            : "-:" + std::to_string(lines + row.message[0] - '0') + row.message.substr(1);
    EXPECT_EQ(played.result.message, message);
    EXPECT_EQ(played.output.substr(std::min(prelude.size(), played.output.size())), row.output);
  }
}

const std::string kStation =
    "click frmMain.Command1(0)\nanswer Yes\nclick frmLogin.cmdOK\ntype frmCreateBase.Text1(2) 2\n"
    "click frmCreateBase.cmdCreateBase(0)\n";
const std::string kBlank = kStation + "click frmAcquire.Command1\nclick frmAcquire.Command1\n";

}  // namespace

TEST(Script, EndsWithTheStatusOfWhatWentWrong) {
  const std::string main = "screen frmMain shown\n";
  const std::string quit = "box \"Exit the Program?\" \"Do you want to Quit? Y/N\" -> ";
  PlayRows(
      "",
      {
          {"", 0, ""},
          {"# nothing\n\n  # indented\nanswer No\nfile none\n", 0, ""},
          {"start\r\nstart\r\n", 0, "", main},
          {"\xEF\xBB\xBFstart", 0, "", main},
          {"expect frmMain.Text1(4) 1", 0, "", main},
          {"expect frmMain.Text1(4) 2", 1, "1: frmMain.Text1(4) is \"1\", expected \"2\"", main},
          {"expect frmMain.Text1(4) 1 ", 1, "1: frmMain.Text1(4) is \"1\", expected \"1 \"", main},
          {"wait 3 frmMain.Text1(4) 2", 1, "1: frmMain.Text1(4) is \"1\" after 3 s, waited for \"2\"", main},
          {"expect box x", 1, "1: no message box has come up, expected \"x\"", main},
          {"expect printed x", 1, "1: no printed line is \"x\" (0 lines were printed)", main},
          {"expect error Overflow", 1, "1: the last command reported no run-time error \"Overflow\"", main},
          {"\nlaunch", 2, "2: unknown command \"launch\""},
          {"start now", 2, "1: there is more on the line than the command takes: \"now\""},
          {"run 1 s", 2, "1: there is more on the line than the command takes: \"s\"", main},
          {"run fast", 2, "1: \"fast\" is no number of seconds from 0 to 1000000", main},
          {"run -1", 2, "1: \"-1\" is no number of seconds from 0 to 1000000", main},
          {"read 1 0", 2, "1: \"0\" is no count from 1 to 1000000", main},
          {"read", 2, "1: the value to read is missing", main},
          {"answer Maybe", 2, "1: \"Maybe\" is no button: OK, Cancel, Yes or No"},
          {"file", 2, "1: the path of a file is missing"},
          {"include", 2, "1: the name of a script is missing"},
          {"include none.ks", 2, "1: the script \"none.ks\" can't be read"},
          {"line sideways", 2, "1: \"sideways\" is neither up nor down", main},
          {"feed \\q", 2, "1: an escape is wrong; \\r, \\n, \\\\ and \\xHH can be used", main},
          {"key frmMain F13", 2,
           "1: \"F13\" is no key: F1 to F12, Space, Enter, Backspace, Tab or one character", main},
          {"key frmNone F1", 2, "1: there is no screen \"frmNone\"", main},
          {"key frmLogin F1", 2, "1: an operator can't do this: the screen frmLogin is not on the display",
           main},
          {"click frmAcquire.Command1", 2,
           "1: an operator can't do this: the screen frmAcquire is not on the display", main},
          {"click frmMain.Command1(4)", 3,
           "1: no answer waits for the message box \"Do you want to Quit? Y/N\"",
           main + quit + "no answer\n"},
          {"answer OK\nclick frmMain.Command1(4)", 3,
           "2: no answer waits for the message box \"Do you want to Quit? Y/N\": it has no button OK, which "
           "is the answer queued next",
           main + quit + "no answer\n"},
          {"click frmMain.Command1(2)", 3,
           "1: no answer waits for the file dialog \"Chl Data Files (Chl*)|Chl*\"", main},
          {"answer Yes\nclick frmMain.Command1(4)\n# the end", 0, "", main + quit + "Yes\nprogram ended\n"},
          {"answer Yes\nclick frmMain.Command1(4)\nshow status", 2,
           "3: the program has ended; no command can follow", main + quit + "Yes\nprogram ended\n"},
      });
}

TEST(Script, AReportedErrorMustBeExpectedBeforeTheNextCommandThatActs) {
  const std::string fail = kStation + "type frmAcquire.txtStaInfo(4) 1\nanswer Yes\nkey frmAcquire F6\n";
  const std::string what =
      ": a run-time error was reported: Division by zero\\nrow 1, 2: tau is 1: tau / (tau - 1) divides by "
      "zero; check the box \"tau = \"\\nAll stored values are as they were; the run goes on.";
  PlayRows(fail, {
                     {"", 4, "0" + what},
                     {"show frmAcquire.Visible", 4, "0" + what, "frmAcquire.Visible = 1\n"},
                     {"expect status 3", 4, "0" + what},
                     {"click frmAcquire.Command4", 4, "0" + what},
                     {"expect error Overflow", 4, "0" + what},
                     {"expect error Division by zero", 0, ""},
                     {"expect box Recalculate all values? Y/N\nexpect error Division by zero\nexpect error "
                      "Division by zero",
                      0, ""},
                     {"expect error Division by zero\nrun 1\nexpect error Division by zero", 1,
                      "3: the last command reported no run-time error \"Division by zero\""},
                 });
  // An OK that was queued for the report is used up by it, any other answer waits on.
  EXPECT_EQ(Played(Replaced(fail, "answer Yes\nkey", "answer Yes\nanswer OK\nkey")).platform.AnswersWaiting(),
            0U);
  EXPECT_EQ(Played(Replaced(fail, "answer Yes\nkey", "answer Yes\nanswer No\nkey")).platform.AnswersWaiting(),
            1U);
}

TEST(Script, NamesEveryControlTheRunStateAndTheChart) {
  const std::pair<const char*, const char*> values[] = {
      {"frmAcquire.Command1", "&Start"},
      {"FRMACQUIRE.command1.Caption", "&Start"},
      {"frmAcquire.Command5.ToolTipText", "Skips to the next sample (enters -99 for both reads)"},
      {"frmAcquire.txtStaInfo(5)", "138"},
      {"frmAcquire.Check1", "Autoread"},
      {"frmAcquire.Check1(1)", "Autoread"},
      {"frmAcquire.Check1.Value", "0"},
      {"frmAcquire.Option1(0).Value", "1"},
      {"frmAcquire.Option1(3)", "Samples"},
      {"frmAcquire.Text4(0)", "Load Sample then press <spacebar>"},
      {"frmAcquire.txtMean(20)", "Mean 20"},
      {"frmAcquire.txtBlank(10)", "0.0000"},
      {"frmAcquire.Visible", "1"},
      {"frmMain.Visible", "0"},
      {"frmCreateBase.cmdCreateBase(1).Visible", "0"},
      {"frmWhatsNext.NextButton.Enabled", "1"},
      {"frmEditCFG.Option1(1)", "Ave Blank"},
      {"frmRecalc.Text1(3)", "138"},
      {"frmAcquire.datalog(2,1)", "08"},
      {"frmAcquire.datalog(0, 3)", "Rb"},
      {"frmAcquire.datalog(1,0).BackColor", "14737632"},
      {"run.StepName", "BLANK"},
      {"run.SampTbl(6,1)", "08"},
      {"run.TraceColor", "16711935"},
      {"run.SampNum", "1"},
      {"run.ReadFlag", "False"},
      {"status", ""},
      {"chart(100)", "0"},
  };
  for (const auto& [name, value] : values)
    PlayRows(kStation, {{"show " + std::string(name) + "\nexpect " + name + " " + value, 0, "",
                         std::string(name) + " = " + value + "\n"}});
  const std::string lines =
      "frmAcquire.Text4 = 1: Load Blank\\n2: When stable, press <Spacebar>\\n    or Click [Start]\n";
  PlayRows("start\n", {{"show frmAcquire.Text4", 0, "", lines},
                       {"expect " + Replaced(lines, " = ", " ").substr(0, lines.size() - 3), 0, ""}});
  PlayRows(kStation,
           {
               {"expect frmAcquire.Visible True\nexpect frmAcquire.Check1.Value False\nexpect run.ReadFlag 0",
                0, ""},
               {"expect run.TraceColor &HFF00FF\nexpect frmAcquire.datalog(1,0).BackColor &he0e0e0", 0, ""},
               {"expect frmAcquire.Visible 0", 1, "1: frmAcquire.Visible is \"1\", expected \"0\""},
           });
}

TEST(Script, RefusesNamesThatAreNone) {
  const std::pair<const char*, const char*> names[] = {
      {"frmNone.Command1", "there is no screen \"frmNone\""},
      {"frmAcquire.Command9", "frmAcquire has no such control or index"},
      {"frmAcquire.txtStaInfo", "frmAcquire has no such control or index"},
      {"frmAcquire.txtStaInfo(14)", "frmAcquire has no such control or index"},
      {"frmAcquire.txtMean(0)", "frmAcquire has no such control or index"},
      {"frmAcquire.Check1(0)", "frmAcquire has no such control or index"},
      {"frmAcquire.txtStaInfo(1,2)", "frmAcquire has no such control or index"},
      {"frmAcquire.txtStaInfo(x)", "\"x\" is no index"},
      {"frmAcquire.txtStaInfo(1", "a \")\" is missing"},
      {"frmAcquire.datalog", "name a cell of the grid, such as datalog(1,3)"},
      {"frmAcquire.datalog(101,0)", "the grid has rows 0 to 100 and columns 0 to 13"},
      {"frmAcquire.Command1.Value", "it has no .Value"},
      {"frmAcquire.Command1.Text", "it has no .Text"},
      {"frmAcquire", "name a control of the screen"},
      {"run.Nothing", "the run state has no such name or index"},
      {"run.SampTbl(105,0)", "the run state has no such name or index"},
      {"chart(101)", "the chart has values 0 (oldest) to 100"},
  };
  for (const auto& [name, why] : names)
    PlayRows("start\n",
             {{"show " + std::string(name), 2, "1: unknown control \"" + std::string(name) + "\": " + why}});
  PlayRows(kStation,
           {
               {"show", 2, "1: a control is missing"},
               {"click run.StepName", 2, "1: \"run.StepName\" is no control that an operator can reach"},
               {"type frmAcquire.Command1 x", 2, "1: no text can be typed into frmAcquire.Command1"},
               {"type frmAcquire.datalog x", 2, "1: name a cell of the grid, such as datalog(1,3)"},
               {"type frmAcquire.datalog(0,3) x", 2,
                "1: \"frmAcquire.datalog(0,3)\" is a heading; the rows of the grid begin with 1"},
           });
}

TEST(Script, DoesWhatAnOperatorDoes) {
  PlayRows(
      kStation,
      {
          {"click frmAcquire.Check1\nexpect frmAcquire.Check1.Value 1", 0, ""},
          {"click frmAcquire.Option1(3)\nexpect frmAcquire.Option1(3).Value 1\nexpect "
           "frmAcquire.Option1(0).Value 0\nexpect run.StepName SAMPLE",
           0, ""},
          {"type frmAcquire.txtStaInfo(9) 07/14/2007\nexpect frmAcquire.txtStaInfo(9) 07/14/2007", 0, ""},
          {"type frmAcquire.txtStaInfo(9) \nexpect frmAcquire.txtStaInfo(9) ", 0, ""},
          // The same number typed anew is an edit: the next station keeps it.
          {"expect run.ProcNumEdited 0\ntype frmAcquire.txtStaInfo(0) 002\nexpect run.ProcNumEdited 1", 0,
           ""},
          // A box that is left gives the space bar back to the button.
          {"type frmAcquire.txtStaInfo(9) 1\nkey frmAcquire Space\nexpect frmAcquire.Command1 Load "
           "Blank\nexpect frmAcquire.txtStaInfo(9) 1",
           0, ""},
          {"focus frmAcquire.txtStaInfo(9)\nkey frmAcquire Space\nkey frmAcquire x\nexpect "
           "frmAcquire.txtStaInfo(9)  x",
           0, ""},
          {"type frmAcquire.datalog(2,3) 1.25\nexpect frmAcquire.datalog(2,3) 1.25\ntype "
           "frmAcquire.datalog(2,3) 7\nkey frmAcquire 5\nexpect frmAcquire.datalog(2,3) 75\nkey frmAcquire "
           "Backspace\nexpect frmAcquire.datalog(2,3) 7",
           0, ""},
          {"answer Yes\nanswer Yes\ndblclick frmAcquire.datalog(2,4)\nexpect run.SampNum 2\nexpect "
           "frmAcquire.Command1 Acidify",
           0, "",
           "box \"Moving Data Aquistion to selected cell.\" \"Do you want to reset the sample logging to "
           "this cell?  Y/N\" -> Yes\n"
           "box \"Do not use the double-click relocate feature to skip samples!\" \"Do not use "
           "double-clicking to skip samples - use [Skip]; continue edit? Yes to continue, No to cancel (then "
           "click [Skip])\" -> Yes\n"},
          {"click frmAcquire.Command6\nscreens", 0, "",
           "screen frmWhatsNext shown\nfrmWhatsNext frmAcquire\n"},
          {"answer No\nkey frmAcquire F6\nanswer OK\nkey frmAcquire F1\nexpect box Help is not available "
           "yet, look at tips with mouseover\nexpect box Recalculate all values? Y/N\nexpect box x",
           1,
           "7: the newest message box says \"Q:\\vault\\2007\\0707\\chl\\chl002 not found!  Yes to create "
           "file, No to search, Cancel to load next sta.\", expected \"x\"",
           "box \"Recalculate?\" \"Recalculate all values? Y/N\" -> No\nbox \"\" \"Help is not available "
           "yet, look at tips with mouseover\" -> OK\n"},
      });
  PlayRows("file c:\\x\nfile none\nstart\n",
           {{"click frmMain.Command1(2)\nclick frmMain.Command1(2)", 0, ""}});
}

TEST(Script, ReadsTheLineInItsOwnTime) {
  PlayRows(kBlank,
           {
               {"read 0.005\nexpect frmAcquire.Text1 A =  0.005 (RAW)\nexpect frmAcquire.txtStats(1) 0.005",
                0, ""},
               {"read 0.005 9\nexpect frmAcquire.Command1 Read Blank\nread 0.005\nexpect frmAcquire.Command1 "
                "Save &Blank",
                0, ""},
               {"feed A =  0.0\nrun 0.1\nexpect run.ReadCount 0\nfeed 44 (RAW)\\r\\n\nexpect run.ReadCount "
                "0\nrun 0\nexpect frmAcquire.txtStats(1) 0.044",
                0, ""},
               {"feed \\x41 = 1\\\\ (RAW)\nrun 0\nexpect frmAcquire.txtStats(1) 1.000\nexpect "
                "frmAcquire.Text1 = 1\\ (RAW)",
                0, ""},
               {"line down\nfeed A = 1 (RAW)\nread 1 2\nexpect frmAcquire.txtStats(1) \nexpect status Serial "
                "line lost, trying again every second: port 1 is unplugged; plug the cable in again\nline "
                "up\nwait 2 status Serial line open again, waiting for a reading...\nread 2\nexpect "
                "frmAcquire.txtStats(1) 2.000",
                0, ""},
               {"wait 6 status No reading for 5 s. Check the fluorometer and its cable.", 0, ""},
               {"read 2 3\nexpect chart(98) 0.2\nexpect chart(97) 0", 0, ""},
           });
  // Ticks at their interval, each with the reading of its second; not one before the second is over.
  Played played(kBlank + "read 1 2\nread 2\nrun 0.9\n");
  const std::string& log = played.disk.Files["q:\\vault\\2007\\0707\\chl\\chl002.csv"];
  EXPECT_TRUE(EndsWith(log,
                       "002,07,Read Blank,11/24/2026,03:00:01,1.000,0.000,,,,,,,1.000\r\n"
                       "002,07,Read Blank,11/24/2026,03:00:02,1.000,0.000,,,,,,,1.000\r\n"
                       "002,07,Read Blank,11/24/2026,03:00:03,2.000,0.000,,,,,,,2.000\r\n"))
      << log;
  EXPECT_EQ(played.disk.Files, Played(kBlank + "read 1 2\nread 2\nrun 0.9\n").disk.Files);
}

TEST(Script, SetsTheScene) {
  Played played(
      "write c:\\new\\a.txt  two  blanks \nappend c:\\new\\A.TXT\nappend c:\\new\\a.txt \\n stays\nprinter "
      "off\nprinter on\n");
  EXPECT_EQ(played.result.message, "");
  EXPECT_EQ(played.disk.Files["c:\\new\\a.txt"], " two  blanks \r\n\r\n\\n stays\r\n");
}

}  // namespace kelp
