// SPDX-License-Identifier: GPL-3.0-or-later
// A station whose samples have been read and calculated, ready to be saved; and the same station opened
// again in another run of the program.
#pragma once

#include <gtest/gtest.h>

#include "stage/program.hpp"
#include "workflow/dialogs.hpp"

namespace kelp {

inline const std::string kChl = "q:\\vault\\2007\\0707\\chl\\";

struct StationFiles : Program {
  std::string& file(const std::string& name) { return disk.Files[Lower(kChl + name)]; }
  bool Has(const std::string& name) { return disk.Files.contains(Lower(kChl + name)); }

  /// F2, answered with Yes: results, print job and configuration are saved.
  void Save() {
    Answers({Answer::Yes});
    Key("frmAcquire", kKeyF1 + 1);
  }

  /// The program started anew on another one's disk; its station is opened by the login.
  void Reopen(const StationFiles& other) {
    disk.Files = other.disk.Files;
    disk.Folders = other.disk.Folders;
    LoadConfig(kelp);
    Configure(kCfgProcNum, std::to_string(static_cast<int>(Val(other.kelp.run.ProcNum)) - 1));
    LogIn({});
  }
};

inline void ExpectSameGrid(Program& opened, Program& saved) {
  for (int row = 1; row <= saved.run().SampCount; ++row)
    for (int col = 0; col < saved.form().datalog.Cols; ++col)
      EXPECT_EQ(opened.cell(row, col), saved.cell(row, col)) << row << "," << col;
}

struct FinishedStation : StationFiles {
  explicit FinishedStation(int samples = 3) {
    OpenStation(samples);
    run().BeginBlankText = form().txtBlank[0].Text = "0.0050";
    run().EndBlankText = form().txtBlank[1].Text = "0.0054";
    const char* copros[] = {"1.5310", "1.5290", "5.0310", "5.0290"};
    for (int i = 0; i < 4; ++i) form().txtBlank[kBoxCopro1 + i].Text = copros[i];
    const std::pair<int, const char*> header[] = {{kStaAveBlank, "0.0052"},
                                                  {kStaF, "0.109"},
                                                  {kStaTau, "2.288"},
                                                  {kStaFiltDate, "11/23/2026"},
                                                  {kStaFiltTime, "11:30:00 PM"}};
    for (const auto& [box, text] : header) form().txtStaInfo[box].Text = text;
    run().RunDate = "11/24/2026,02:59:58";
    for (int row = 1; row <= samples; ++row) {
      cell(row, kColRb) = Fixed(2.0 + row, 4);
      cell(row, kColRa) = Fixed(1.0 + row / 2.0, 4);
    }
    CalcAllSamples(kelp);
  }
};

}  // namespace kelp
