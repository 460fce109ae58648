// SPDX-License-Identifier: GPL-3.0-or-later
// The floor of the first picture: a window of the main window's size with nothing in it, and the same with as
// many plain labels and buttons as the main window has, in one font and with nothing behind them.
#pragma once

#include <unistd.h>

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <optional>

#include "bench/watcher.hpp"
#include "desktop/machine/early_fonts.hpp"

namespace kelp {

// A process of its own; `argv` is PROGRAM --measure BEGUN empty|plain FOLDER.
inline int MeasureFloor(int argc, char** argv) {
  constexpr int kMainButtons = 8;
  constexpr int kMainLabels = 10;
  const bool filled = std::strcmp(argv[3], "plain") == 0;
  std::optional<EarlyFonts> fonts;
  if (filled) fonts.emplace();
  Watcher watcher(argc, argv);
  QWidget window;
  window.setObjectName("floor");
  window.resize(760, 350);
  if (filled) {
    auto* layout = new QGridLayout(&window);
    for (int row = 0; row < kMainButtons; ++row)
      layout->addWidget(new QPushButton("View/Edit Chlxxx File"), row, 0);
    for (int row = 0; row < kMainLabels / 2; ++row) {
      layout->addWidget(new QLabel("Line.Sta"), row, 1);
      layout->addWidget(new QLabel("93.3 70"), row, 2);
    }
  }
  window.show();
  std::printf("%s %.3f\n", argv[3], watcher.PictureOf("floor") - std::atof(argv[2]));
  std::fflush(stdout);
  ::_exit(0);
}

}  // namespace kelp
