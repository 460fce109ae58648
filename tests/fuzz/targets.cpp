// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/fuzz/targets.hpp"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <sstream>

#include "core/text.hpp"
#include "platform/scripted.hpp"
#include "record/old_journal.hpp"
#include "record/record.hpp"
#include "review/final_files.hpp"
#include "review/html_review.hpp"
#include "review/text_review.hpp"
#include "script/own_time.hpp"
#include "script/player.hpp"
#include "stage/program.hpp"

namespace kelp {

namespace {

constexpr const char* kChl = "q:\\vault\\2007\\0707\\chl\\";
constexpr const char* kJournal = "d:\\backup\\chl002.jnl";
constexpr const char* kBase =
    "93.3 70\r\nZEPHOR\r\n0.0 0.0 0.0 0.0\r\n0.0 0.0 0.0 0.0\r\n002   2 0.00987 2.011\r\n"
    "2 07    3  138 8 \r\n2 08    3  138 8 \r\n";

void Promise(bool kept, const char* promise) {
  if (kept) return;
  std::fprintf(stderr, "broken promise: %s\n", promise);
  std::abort();
}

// Not the report of an exception that is none of the program's own.
bool IsKnown(const Message& message) {
  return !StartsWith(message.Text, "Invalid procedure call\nunexpected: ");
}

// Agrees to everything; no run-time error may be one that the program does not know.
class Agreeable : public ScriptedPlatform {
 public:
  using ScriptedPlatform::ScriptedPlatform;
  Answer Ask(const Message& message) override {
    Promise(IsKnown(message), message.Text.c_str());
    return message.Buttons == Buttons::Ok || message.Buttons == Buttons::OkCancel ? Answer::Ok : Answer::Yes;
  }
  std::optional<std::string> AskFile(const FileQuestion& /*question*/) override { return std::nullopt; }
};

struct Stage : ProgramOn<Agreeable> {
  Stage() { disk.Files[kChl + std::string("chl002")] = kBase; }
  explicit Stage(const MemoryDisk& before) { disk.Files = before.Files, disk.Folders = before.Folders; }

  void Open() { LogIn({}); }
  void Save() { Key("frmAcquire", kKeyF1 + 1); }
  void TypeBlank(const char* text) {
    Do({.Kind = EventKind::Edit, .Place = {"frmAcquire", "txtBlank", 0}, .Text = text});
  }
  std::string& Blank() { return kelp.frmAcquire.txtBlank[0].Text; }
  [[nodiscard]] std::string Readings() const {
    std::string text;
    for (int row = 1; row <= kelp.run.SampCount; ++row)
      for (const int col : {kColRb, kColRa, kColFiltCom, kColReadCom})
        text += kelp.frmAcquire.datalog.Text(row, col) + "|";
    return text;
  }
};

// The two parts of a text on both sides of the first 0xFF.
std::pair<std::string, std::string> Halves(std::string_view data) {
  const auto cut = std::min(data.find('\xff'), data.size());
  return {std::string(data.substr(0, cut)), std::string(data.substr(std::min(cut + 1, data.size())))};
}

void FuzzInstrument(std::string_view data) {
  Stage stage;
  stage.Open();
  stage.Click("frmAcquire", "Check1");
  stage.Click("frmAcquire", "Command1");
  stage.Click("frmAcquire", "Command1");
  for (std::string rest(data); !rest.empty();) {
    auto [piece, more] = Halves(rest);
    stage.platform.Feed(piece);
    stage.platform.Advance(500);
    Pass(stage.kelp);
    Tick(stage.kelp);
    Promise(stage.kelp.loop.Accumulator.size() <= 64 * 1024 + piece.size(), "the accumulator is bounded");
    Promise(std::isfinite(stage.kelp.run.CurReading), "a reading is a number");
    if (StartsWith(stage.kelp.frmAcquire.Command1.Caption, "Load")) stage.Click("frmAcquire", "Command1");
    rest = std::move(more);
  }
}

void FuzzConfig(std::string_view data) {
  Stage stage;
  stage.disk.Files[Lower(kConfigPath)] = data;
  Start(stage.kelp);
  stage.Click("frmMain", "Command1", 1);
  stage.Click("frmEditCFG", "Command1", 0);
  stage.Click("frmEditCFG", "Command1", 1);
  stage.Click("frmLogin", "cmdOK");
  stage.Click("frmCreateBase", "cmdCreateBase", 0);
  stage.Click("frmAcquire", "Command1");
  stage.Save();
  const auto lines = Lines(stage.disk.Files[Lower(kConfigPath)]);
  Promise(stage.disk.Files[Lower(kConfigPath)] == data || lines.size() == 41,
          "a saved configuration has 41 lines");
}

void FuzzBaseFile(std::string_view data) {
  Stage stage;
  stage.disk.Files[kChl + std::string("chl002")] = data;
  stage.Open();
  const std::string readings = stage.Readings();
  stage.Save();
  if (!stage.kelp.run.ResultsSaved) return;
  Promise(stage.disk.Files[kChl + std::string("chl002base")] == data, "the base file is kept as it was");
  Stage again(stage.disk);
  LoadConfig(again.kelp);
  RewriteField(again.kelp.run.CfgLines[kCfgProcNum], "001");
  SaveConfig(again.kelp);
  again.Open();
  Promise(again.Readings() == readings, "a saved station gives back its readings");
}

void FuzzCtd(std::string_view data) {
  Stage stage;
  const auto [header, mark] = Halves(data);
  stage.disk.Files["q:\\vault\\2007\\0707\\ctd\\0707002.hdr"] = header;
  stage.disk.Files["q:\\vault\\2007\\0707\\mrk\\0707002.mrk"] = mark;
  stage.Open();
  Promise(stage.kelp.run.SampCount == 2, "a bad CTD file does not keep the station from loading");
}

void FuzzJournal(std::string_view data) {
  std::string journal = OldJournalLine("station 1 0 " + (kChl + std::string("chl002")));
  for (const std::string& line : Lines(data)) {
    const auto words = Words(line);
    const bool whole = words.size() >= 3 && !line.starts_with('!');
    journal += whole ? OldJournalLine(words[0] + " " + std::to_string(std::atoi(words[1].c_str())) + " " +
                                      std::to_string(std::atoi(words[2].c_str())) + " " +
                                      (words.size() > 3 ? line.substr(line.rfind(words[3])) : ""))
                     : line + "\r\n";
  }
  Stage stage;
  stage.disk.Files[kJournal] = journal;
  stage.Open();
  const std::string readings = stage.Readings();
  Promise(stage.disk.Files[kJournal + std::string(".taken")] == journal, "a journal is kept as it was");
  Stage again(stage.disk);
  again.Open();
  Promise(again.Readings() == readings, "what is restored can be restored again");
  again.Click("frmAcquire", "Command1");
  again.Save();
}

// A script may let a million seconds pass; a fuzzer has no such time.
class ShortHost : public OwnTimeHost {
 public:
  using OwnTimeHost::OwnTimeHost;
  bool Let(std::int64_t milliseconds, const std::function<bool()>& until) override {
    left_ -= milliseconds + 1;
    if (left_ < 0) ScriptIsWrong("the time is over");
    return OwnTimeHost::Let(milliseconds, until);
  }

 private:
  std::int64_t left_ = 60000;
};

void FuzzScript(std::string_view data) {
  Stage stage;
  ScriptedPlatform machine(stage.disk);
  const auto kelp = std::make_unique<Kelp>(machine);
  ShortHost host(*kelp, machine);
  std::string script;
  for (const std::string& line : Lines(data))
    if (!Contains(line, "include"))
      script += line + "\n";  // a file of this machine is none of a fuzzer's business
  std::istringstream lines(script);
  const ScriptResult result = ScriptPlayer(host).Play("-", lines);
  Promise(result.status == ScriptStatus::Done || StartsWith(result.message, "-:"),
          "a failure names its line");
  for (const auto& box : machine.Boxes) Promise(IsKnown(box.message), box.message.Text.c_str());
}

// Bytes put into a record that holds a station, by their place; or a whole file.
void FuzzRecord(std::string_view data) {
  static const MemoryDisk whole = [] {
    Stage stage;
    stage.Open();
    stage.TypeBlank("0.0050");
    return stage.disk;
  }();
  Stage stage(whole);
  std::string& record = stage.disk.Files[kRecordPath];
  const auto byte = [&](int at) { return std::size_t{static_cast<unsigned char>(data[at])}; };
  if (StartsWith(data, "SQLite format 3"))
    record = data;
  else
    for (; data.size() >= 3; data.remove_prefix(3))
      record[(byte(0) * 256 + byte(1)) % record.size()] = data[2];
  const std::string damaged = record;
  try {
    ListRecord(stage.disk, "");
    ListRecord(stage.disk, "002");
  } catch (const FileError& error) {
    Promise(Contains(error.what(), kRecordPath), "a record that can't be listed is named");
  }
  stage.Open();
  // A station whose name is damaged is offered under that name, and has no base file.
  if (stage.kelp.run.PrnFile.empty()) return;
  stage.TypeBlank("0.0077");
  for (const auto& [path, text] : stage.disk.Files)
    Promise(!StartsWith(path, "c:\\kelp\\record-1") || text == damaged, "what is set aside is kept");
  Stage again(stage.disk);
  again.Open();
  Promise(again.Blank() == "0.0077" || stage.kelp.record.Unsafe,
          "a value is in the record, or an alarm stands");
}

void FuzzStation(std::string_view data) {
  Stage stage;
  const std::string path = kChl + std::string("chl002");
  stage.disk.Files[path] = data;
  try {
    const StationFile station = ReadStationFile(stage.disk, path);
    std::string readings;
    for (const StationSample& sample : station.Samples)
      readings += sample.Rb + "|" + sample.Ra + "|" + sample.FiltererRemark + "|" + sample.ReaderRemark + "|";
    // A first sample without Rb makes a station that is run for the first time, whatever stands behind it.
    if (station.Samples.empty() || station.Samples.front().Rb.empty()) return;
    stage.Open();
    Promise(stage.Readings() == readings, "the review reads what the program opens");
  } catch (const RunTimeError& error) {
    Promise(Contains(error.what(), path), "a station that is refused is named");
  }
}

void FuzzReview(std::string_view data) {
  MemoryDisk disk;
  std::size_t files = 0;
  for (std::string rest(data); !rest.empty() && files < 9;) {
    auto [text, more] = Halves(rest);
    disk.Files["q:\\c\\chl00" + std::to_string(++files)] = text;
    rest = std::move(more);
  }
  if (files == 0) return;
  const Review review =
      MakeReview(ReadCruise(disk, "q:\\c\\"), {0.010, {"3-1", 1.53, 0.3}, {"2-5", 5.03, 0.5}});
  Promise(review.Stations.size() + review.Cruise.Left.size() == files,
          "a file is read, or left out with a reason");
  const FinalData final = MakeFinalData(review.Cruise, {});
  Promise(Lines(FinalCsv(final)).size() == final.Rows.size() + 1, "a sample is a row of the final data");
  std::vector<const Station*> shown;
  for (const Station& station : review.Stations) shown.push_back(&station);
  std::string page;
  WriteHtmlReview(review, final, shown, [&](std::string_view text) { page += text; });
  Promise(page.ends_with("</html>\n") && !Contains(page, "<script"), "the page is whole and runs nothing");
  for (const std::string& line : TextReview(review, final, shown))
    Promise(line.find_first_of("\x1b\r\n") == std::string::npos, "nothing steers the terminal");
}

}  // namespace

const std::vector<FuzzTarget> kFuzzTargets = {
    {"instrument", FuzzInstrument}, {"config", FuzzConfig}, {"base", FuzzBaseFile}, {"ctd", FuzzCtd},
    {"journal", FuzzJournal},       {"script", FuzzScript}, {"record", FuzzRecord}, {"station", FuzzStation},
    {"review", FuzzReview}};

}  // namespace kelp
