// A station whose samples have been read and calculated, ready to be saved.
#pragma once

#include "calc/calc_samples.hpp"
#include "tests/support/program.hpp"

namespace kelp {

inline const std::string kChl = "q:\\vault\\2007\\0707\\chl\\";

struct FinishedStation : Program {
  explicit FinishedStation(int samples = 3, const std::string& station = "93.3 70") {
    OpenStation(samples, station);
    run().BeginBlankText = form().txtBlank[0].Text = "0.0050";
    run().EndBlankText = form().txtBlank[1].Text = "0.0054";
    const char* copros[] = {"1.5310", "1.5290", "5.0310", "5.0290"};
    for (int i = 0; i < 4; ++i) form().txtBlank[kBoxCopro1 + i].Text = copros[i];
    form().txtStaInfo[kStaAveBlank].Text = "0.0052";
    form().txtStaInfo[kStaF].Text = "0.109";
    form().txtStaInfo[kStaTau].Text = "2.288";
    form().txtStaInfo[kStaFiltDate].Text = "11/23/2026";
    form().txtStaInfo[kStaFiltTime].Text = "11:30:00 PM";
    run().RunDate = "11/24/2026,02:59:58";
    for (int row = 1; row <= samples; ++row) {
      cell(row, kColRb) = Fixed(2.0 + row, 4);
      cell(row, kColRa) = Fixed(1.0 + row / 2.0, 4);
    }
    CalcAllSamples(kelp);
  }

  std::string& file(const std::string& name) { return disk.Files[Lower(kChl + name)]; }
  bool Has(const std::string& name) { return disk.Files.contains(Lower(kChl + name)); }

  /// F2, answered with Yes: results, print job and configuration are saved.
  void Save() {
    Answers({Answer::Yes});
    Key("frmAcquire", kKeyF1 + 1);
  }

  /// The program started anew on this disk, the station opened again by the login.
  void Reopen(Program& next) {
    next.disk.Files = disk.Files;
    next.disk.Folders = disk.Folders;
    LoadConfig(next.kelp);
    next.Configure(kCfgProcNum, std::to_string(static_cast<int>(Val(run().ProcNum)) - 1));
    Start(next.kelp);
    next.Click("frmMain", "Command1", 0);
    next.Click("frmLogin", "cmdOK");
  }
};

}  // namespace kelp
