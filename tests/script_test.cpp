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
          {"# nothing\n\n  # indented\nanswer No\nfile none\n", 0, ""},
          {"\xEF\xBB\xBFstart\r\nstart\r\n", 0, "", main},
          {"expect frmMain.Text1(4) 1 ", 1, "1: frmMain.Text1(4) is \"1\", expected \"1 \"", main},
          {"wait 3 frmMain.Text1(4) 2", 1, "1: frmMain.Text1(4) is \"1\" after 3 s, waited for \"2\"", main},
          {"expect box x", 1, "1: no message box has come up, expected \"x\"", main},
          {"expect error Overflow", 1, "1: the last command reported no run-time error \"Overflow\"", main},
          {"start now", 2, "1: there is more on the line than the command takes: \"now\""},
          {"run -1", 2, "1: \"-1\" is no number of seconds from 0 to 1000000", main},
          {"read 1 0", 2, "1: \"0\" is no count from 1 to 1000000", main},
          {"answer Maybe", 2, "1: \"Maybe\" is no button: OK, Cancel, Yes or No"},
          {"feed \\q", 2, "1: an escape is wrong; \\r, \\n, \\\\ and \\xHH can be used", main},
          {"key frmMain F13", 2,
           "1: \"F13\" is no key: F1 to F12, Space, Enter, Backspace, Tab or one character", main},
          {"key frmLogin F1", 2, "1: an operator can't do this: the screen frmLogin is not on the display",
           main},
          {"answer OK\nclick frmMain.Command1(4)", 3,
           "2: no answer waits for the message box \"Do you want to Quit? Y/N\": it has no button OK, which "
           "is the answer queued next",
           main + quit + "no answer\n"},
          {"click frmMain.Command1(2)", 3,
           "1: no answer waits for the file dialog \"Chl Data Files (Chl*)|Chl*\"", main},
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
                     {"click frmAcquire.Command4", 4, "0" + what},
                     {"expect error Overflow", 4, "0" + what},
                     {"expect box Recalculate all values? Y/N\nexpect error Division by zero", 0, ""},
                     {"expect error Division by zero\nrun 1\nexpect error Division by zero", 1,
                      "3: the last command reported no run-time error \"Division by zero\""},
                 });
  // An OK that was queued for the report is used up by it, any other answer waits on.
  for (const auto& [answer, waiting] : {std::pair{"OK", 0U}, {"No", 1U}}) {
    const Played played(
        Replaced(fail, "answer Yes\nkey", std::string("answer Yes\nanswer ") + answer + "\nkey"));
    EXPECT_EQ(played.platform.AnswersWaiting(), waiting);
  }
}

TEST(Script, RefusesNamesThatAreNone) {
  const std::pair<const char*, const char*> names[] = {
      {"frmNone.Command1", "there is no screen \"frmNone\""},
      {"frmAcquire.txtStaInfo", "frmAcquire has no such control or index"},
      {"frmAcquire.txtStaInfo(14)", "frmAcquire has no such control or index"},
      {"frmAcquire.txtMean(0)", "frmAcquire has no such control or index"},
      {"frmAcquire.txtStaInfo(x)", "\"x\" is no index"},
      {"frmAcquire.txtStaInfo(1", "a \")\" is missing"},
      {"frmAcquire.datalog(101,0)", "the grid has rows 0 to 100 and columns 0 to 13"},
      {"frmAcquire.Command1.Text", "it has no .Text"},
      {"frmAcquire", "name a control of the screen"},
      {"run.SampTbl(105,0)", "the run state has no such name or index"},
      {"chart(101)", "the chart has values 0 (oldest) to 100"},
  };
  for (const auto& [name, why] : names)
    PlayRows("start\n",
             {{"show " + std::string(name), 2, "1: unknown control \"" + std::string(name) + "\": " + why}});
  PlayRows(kStation,
           {
               {"click run.StepName", 2, "1: \"run.StepName\" is no control that an operator can reach"},
               {"type frmAcquire.Command1 x", 2, "1: no text can be typed into frmAcquire.Command1"},
               {"type frmAcquire.datalog(0,3) x", 2,
                "1: \"frmAcquire.datalog(0,3)\" is a heading; the rows of the grid begin with 1"},
           });
}

TEST(Script, TicksComeAtTheirIntervalAndFilesAreWrittenAsTheyAreGiven) {
  // Each tick with the reading of its second; not one before the second is over.
  Played played(kBlank + "read 1 2\nread 2\nrun 0.9\n");
  EXPECT_TRUE(EndsWith(played.disk.Files["q:\\vault\\2007\\0707\\chl\\chl002.csv"],
                       "002,07,Read Blank,11/24/2026,03:00:01,1.000,0.000,,,,,,,1.000\r\n"
                       "002,07,Read Blank,11/24/2026,03:00:02,1.000,0.000,,,,,,,1.000\r\n"
                       "002,07,Read Blank,11/24/2026,03:00:03,2.000,0.000,,,,,,,2.000\r\n"));
  Played scene("write c:\\a.txt  two  blanks \nappend c:\\A.TXT\nappend c:\\a.txt \\n stays\n");
  EXPECT_EQ(scene.disk.Files["c:\\a.txt"], " two  blanks \r\n\r\n\\n stays\r\n");
}

}  // namespace kelp
