// SPDX-License-Identifier: GPL-3.0-or-later
// What is wrong with a configuration before a station is run with it.
#include <cmath>

#include "core/config.hpp"
#include "core/numbers.hpp"
#include "core/text.hpp"

namespace kelp {

namespace {

bool IsNumber(const std::string& text) {
  return !text.empty() && text.find_first_not_of("0123456789.+-") == std::string::npos;
}

bool IsWhole(const RunState& run, int line, double least, double most) {
  const double value = CfgNumber(run, line);
  return IsNumber(CfgValue(run, line)) && value >= least && value <= most && std::floor(value) == value;
}

// A name that is a part of another caption would be taken for it.
bool IsCaptionWord(const std::string& name) {
  for (const char* word : {"Rb", "Ra", "&Blank", "Blank", "Begin Blank", "Low Standard", "High Standard",
                           "Sample", "Station Sample"})
    if (name == word) return true;
  return false;
}

}  // namespace

std::vector<std::string> ConfigTroubles(const RunState& run) {
  std::vector<std::string> troubles;
  const auto add = [&](int line, const char* what, const std::string& remedy) {
    troubles.push_back("Line " + Padded(std::to_string(line), 2, "L", "0") + " of kelp.cfg (" + what +
                       ") is \"" + CfgValue(run, line) + "\": " + remedy);
  };
  if (!IsWhole(run, kCfgComport, 1, 256))
    add(kCfgComport, "Comport", "write the number of the port alone, 1 for COM1.");
  if (!IsWhole(run, kCfgReadInterval, 1, 32767))
    add(kCfgReadInterval, "Tmp file read interval",
        "no log is written; write milliseconds, 1000 for a second.");
  if (!IsWhole(run, kCfgMinReads, 1, 32767))
    add(kCfgMinReads, "Minimum Number of Reads", "write a number of 1 or more, usually 10.");
  if (!IsWhole(run, kCfgReadsToAverage, 2, 181))
    add(kCfgReadsToAverage, "Number of Reads to average", "nothing can be saved with it; write 10.");
  else if (CfgNumber(run, kCfgReadsToAverage) != 10)
    add(kCfgReadsToAverage, "Number of Reads to average", "the SD is only one of 10 reads; write 10.");
  const std::string backup = CfgValue(run, kCfgBackupDir);
  if (backup.size() < 3 || backup[1] != ':' || backup[2] != '\\')
    add(kCfgBackupDir, "Kelp Backup Root Dir", "write it with its drive, such as D:\\backup\\.");
  const std::string low = CfgValue(run, kCfgCoproLow);
  const std::string high = CfgValue(run, kCfgCoproHigh);
  if (low.empty()) add(kCfgCoproLow, "Coproporphyrin Low standard", "write the name of the standard.");
  if (high.empty()) add(kCfgCoproHigh, "Coproporphyrin High standard", "write the name of the standard.");
  if (!high.empty() && low == high)
    add(kCfgCoproHigh, "Coproporphyrin High standard", "line 29 has the same name; write two names.");
  for (const CfgLine line : {kCfgCoproLow, kCfgCoproHigh})
    if (IsCaptionWord(CfgValue(run, line))) add(line, "Coproporphyrin standard", "choose another name.");
  return troubles;
}

void TellConfigTroubles(Kelp& kelp) {
  std::string text;
  for (const std::string& trouble : ConfigTroubles(kelp.run)) text += trouble + " ";
  if (!text.empty()) SetStatus(kelp, text + kelp.Status);
}

}  // namespace kelp
