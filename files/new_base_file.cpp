// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/new_base_file.hpp"

#include "core/config.hpp"
#include "core/numbers.hpp"
#include "core/text.hpp"
#include "files/kept_copy.hpp"
#include "files/table_lines.hpp"

namespace kelp {

namespace {

// The loader splits on runs of blanks, so the spacing is part of the format.
std::string TextOf(const RunState& run, const NewStation& station) {
  const std::string count = OneField(Trim(station.Count), false);
  std::string text =
      OneField(Trim(station.LineSta), false) + "\r\n" + CfgValue(run, kCfgFluorometer) + "\r\n";
  text += "0.0 0.0 0.0 0.0\r\n0.0 0.0 0.0 0.0\r\n";
  text += NumberAndCount(run.ProcNum, count) + " " + CfgValue(run, kCfgMachineFactor) + " " +
          CfgValue(run, kCfgAcidRatio) + "\r\n";
  const double samples = Val(count);
  const Counter16 firstBottle = ToInt16(Val(station.FirstBottle));
  for (int i = 1; i <= samples; ++i) {
    const Counter16 bottle = firstBottle - 1 + i;
    text += "2 " + Padded(std::to_string(int{bottle}), 2, "L", "0") + "    3  " +
            CfgValue(run, kCfgFiltrVol) + " " + CfgValue(run, kCfgExtractVol) + " \r\n";
  }
  return text;
}

}  // namespace

void WriteNewBaseFile(Kelp& kelp, const NewStation& station) {
  const RunState& run = kelp.run;
  Disk& disk = kelp.platform.disk();
  const std::string text = TextOf(run, station);
  KeepResults(disk, run.BaseFile, kelp.platform.Now());
  disk.MakeFolder(run.DataOutPath);
  disk.Replace(run.BaseFile, text);
}

}  // namespace kelp
