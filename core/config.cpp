// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/config.hpp"

#include <algorithm>

#include "core/date_time.hpp"
#include "core/numbers.hpp"
#include "core/start_button.hpp"
#include "core/text.hpp"

namespace kelp {

namespace {

void ReadConfig(Kelp& kelp, const std::string& path) {
  const std::string content = kelp.platform.disk().Read(path);
  std::vector<std::string> lines = Lines(content);
  // A file that was searched for is read, but saves go to the usual one.
  kelp.ConfigKnown = path == kConfigPath ? content : "";
  kelp.run.CfgLines = {};
  std::size_t i = 0;
  for (std::string& line : lines) {
    if (Trim(line).empty() || i >= kelp.run.CfgLines.size()) continue;
    kelp.run.CfgLines[i++] = std::move(line);
  }
}

void TakeTemplate(Kelp& kelp, const std::string& notice) {
  Tell(kelp, notice);
  SetDefaultConfig(kelp.run);
  SaveConfig(kelp);
}

// The lines in which two texts of the file differ: "03, 12".
std::string DifferingLines(const std::string& one, const std::string& other) {
  std::vector<std::string> a = Lines(one);
  std::vector<std::string> b = Lines(other);
  const std::size_t count = std::max(a.size(), b.size());
  a.resize(count);
  b.resize(count);
  std::string numbers;
  for (std::size_t i = 0; i < count; ++i)
    if (a[i] != b[i]) numbers += (numbers.empty() ? "" : ", ") + Padded(std::to_string(i), 2, "L", "0");
  return numbers;
}

// Another copy of the program, or a text editor, may have changed the file since.
bool MayOverwrite(Kelp& kelp, const std::string& content) {
  Disk& disk = kelp.platform.disk();
  if (!disk.Exists(kConfigPath)) return true;
  const std::string there = disk.Read(kConfigPath);
  if (there == kelp.ConfigKnown || there == kelp.ConfigTried || there == content) return true;
  Message question{std::string(kConfigPath) + " was changed by somebody else since it was read here: lines " +
                       DifferingLines(there, kelp.ConfigKnown) +
                       ". Yes overwrites that; No leaves the file, and this program's values are tried again "
                       "at the next save. Overwrite? Y/N",
                   "Overwrite", Buttons::YesNo, Icon::Exclamation};
  question.DefaultNo = true;
  return AskYes(kelp, question);
}

// What is longer than its field would overwrite the line's number and description.
std::string Field(std::string_view value, std::size_t width) {
  return Padded(Left(Trim(value), width), width, "R", "S");
}

}  // namespace

std::string CfgValue(const RunState& run, int line, std::size_t width) {
  return std::string(Trim(Left(run.CfgLines.at(static_cast<std::size_t>(line)), width)));
}

double CfgNumber(const RunState& run, int line, std::size_t width) { return Val(CfgValue(run, line, width)); }

int CfgInt16(const RunState& run, int line) {
  try {
    return ToInt16(CfgNumber(run, line));
  } catch (const RunTimeError& error) {
    throw RunTimeError(error.kind(), "configuration line " + std::to_string(line) + " is \"" +
                                         CfgValue(run, line) +
                                         "\", which is no number from -32768 to 32767; mend it in kelp.cfg");
  }
}

void RewriteField(std::string& line, std::string_view text) {
  if (line.size() < text.size())
    throw RunTimeError(ErrorKind::Overflow, "the configuration line \"" + line +
                                                "\" is too short for the value \"" + std::string(text) +
                                                "\"; restore its full width in kelp.cfg");
  line.replace(0, text.size(), text);
}

void LoadConfig(Kelp& kelp) {
  std::string path = kConfigPath;
  while (!kelp.platform.disk().Exists(path)) {
    if (!AskYes(kelp, "Missing cfg file! Do you want to look for it?", "CFG file missing!")) {
      TakeTemplate(kelp, "Kelp.cfg will be created after you fill-out the StaInfo boxes.");
      return;
    }
    const auto chosen = kelp.platform.AskFile({"cfg Files (*.cfg)|*.cfg"});
    if (!chosen) {
      TakeTemplate(kelp,
                   "Unable to find kelp.cfg!  One will be created after you fill-out the StaInfo form.");
      return;
    }
    path = *chosen;
  }
  ReadConfig(kelp, path);
}

bool SaveConfig(Kelp& kelp) {
  std::string content;
  for (const std::string& line : kelp.run.CfgLines) content += line + "\r\n";
  if (!MayOverwrite(kelp, content)) return false;
  kelp.ConfigTried = content;
  // On a machine that never ran the program the folder is missing too.
  kelp.platform.disk().MakeFolder("c:\\kelp");
  kelp.platform.disk().Replace(kConfigPath, content);
  kelp.ConfigKnown = content;
  return true;
}

void SaveStationConfig(Kelp& kelp) {
  RunState& run = kelp.run;
  FrmAcquire& form = kelp.frmAcquire;
  // Numbers from 990 on are reserved (tests, calibrations): they leave the running values alone.
  if (Val(run.ProcNum) < 990) {
    auto lines = run.CfgLines;
    RewriteField(lines[kCfgProcNum], NextProcNum(run.ProcNum));
    RewriteField(lines[kCfgStation], Field(form.txtStaInfo[kStaLineSta].Text, 30));
    RewriteField(lines[kCfgAnalyst], Field(form.Combo1.Text, 3));
    RewriteField(lines[kCfgTube], Left(Padded(std::to_string(int{run.TubeNum}), 3, "L", "S"), 3));
    RewriteField(lines[kCfgFiltration], std::string(Trim(form.txtStaInfo[kStaFiltDate].Text)) + " " +
                                            std::string(Trim(form.txtStaInfo[kStaFiltTime].Text)));
    RewriteField(lines[kCfgRunDate], run.RunDate);
    for (std::string& line : lines) line = OneField(line, false);
    run.CfgLines = lines;
  }
  Say(kelp, "Saving Station " + run.ProcNum);
  form.txtStaInfo[kStaVial].Text = std::to_string(int{run.TubeNum});
  SaveConfig(kelp);
}

void SnapshotConfig(Kelp& kelp) {
  Disk& disk = kelp.platform.disk();
  if (!disk.Exists(kConfigPath)) return;
  std::string content;
  for (const std::string& line : Lines(disk.Read(kConfigPath))) content += line + "\r\n";
  // Snapshots of one station accumulate: the file is never cut.
  disk.Append("c:\\kelp\\kelp." + kelp.run.ProcNum, content);
}

void TakeLastStation(RunState& run) {
  const DateAndTime filtered = SplitDateTime(CfgValue(run, kCfgFiltration));
  run.CtdDate = filtered.Date;
  run.CtdTime = filtered.Time;
  run.ProcNum = CfgValue(run, kCfgProcNum);
  run.DataOutPath = WithBackslash(CfgValue(run, kCfgDataPath));
  run.CruiseID = CfgValue(run, kCfgCruise, 10);
  run.RunStarted = false;
}

}  // namespace kelp
