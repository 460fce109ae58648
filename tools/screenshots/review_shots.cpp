// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/screenshots/review_shots.hpp"

#include <QApplication>
#include <QTabWidget>
#include <QTableWidget>
#include <cstdio>

#include "desktop/review/review_window.hpp"
#include "simulator/generated_cruise.hpp"

namespace kelp {

namespace {

std::vector<GeneratedStation> CruiseWithFindings() {
  std::vector<GeneratedStation> stations = GenerateCruise(40);
  for (std::size_t i = 0; i < stations.size(); ++i) {
    stations[i].Copro1 += 0.003 * static_cast<double>(i);
    stations[i].Copro1End += 0.003 * static_cast<double>(i);
  }
  stations[24].EndBlank = 0.031;
  stations[2].Samples[4].Ra = stations[2].Samples[4].Rb / 2.2;
  std::swap(stations[30].Samples[3].Tube, stations[30].Samples[4].Tube);
  GeneratedStation& lab = stations[39];
  lab.Name = "LAB CAL";
  lab.Samples.resize(5);
  for (std::size_t i = 0; i < 5; ++i) {
    const double concentration = 20 * static_cast<double>(i + 1);
    lab.Samples[i].Rb = lab.Blank + concentration / 9.91 + (i % 2 == 0 ? 0.02 : -0.03);
    lab.Samples[i].Ra = lab.Blank + (lab.Samples[i].Rb - lab.Blank) / (i % 2 == 0 ? 2.02 : 2.008);
  }
  return stations;
}

}  // namespace

void TakeReviewPictures(Desk& desk, const QString& folder) {
  const std::string chl = "q:\\vault\\2007\\0707\\review\\";
  for (const GeneratedStation& station : CruiseWithFindings())
    desk.disk.Files[chl + "chl" + station.ProcNum] = station.Text();
  desk.disk.Files[chl + "chl041"] = "93.3 70\r\nZEPHOR\r\n";
  ReviewWindow window(desk.kelp, [] { return std::nullopt; });
  window.show();
  window.Open(chl);
  auto* tabs = window.findChild<QTabWidget*>();
  const char* names[] = {"stations", "profile", "charts", "checks", "calibration", "final"};
  for (int tab = 0; tab < tabs->count(); ++tab) {
    tabs->setCurrentIndex(tab);
    if (auto* tubes = tabs->currentWidget()->findChild<QTableWidget*>())
      for (int row = 0; row < tubes->rowCount(); ++row)
        tubes->item(row, 3)->setText(QString::number(20 * (row + 1)));
    QApplication::processEvents();
    const QString path = folder + "/review-" + names[tab] + ".png";
    if (!window.grab().save(path)) std::fprintf(stderr, "%s was not written\n", qPrintable(path));
  }
}

}  // namespace kelp
