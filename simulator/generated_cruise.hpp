// SPDX-License-Identifier: GPL-3.0-or-later
// A cruise as it might come home: base files of many stations with smooth profiles, a clean instrument and
// nothing to find, into which a test plants its faults.
#pragma once

#include <string>
#include <vector>

namespace kelp {

struct GeneratedSample {
  std::string Bottle, Depth, Tube;
  double Rb = 0, Ra = 0;
};

struct GeneratedStation {
  std::string ProcNum, Cruise = "0707SL", Name = "93.3 70", F = "0.00987", Tau = "2.011";
  std::string Filtered, Read;
  double Blank = 0.005, EndBlank = 0.005, Copro1 = 1.53, Copro1End = 1.53, Copro2 = 5.03, Copro2End = 5.03;
  std::vector<GeneratedSample> Samples = {};

  /// The base file of the saved station.
  [[nodiscard]] std::string Text() const;
};

/// `count` stations of 12 samples, numbered from 001, six hours apart. The noise repeats and stays within
/// its bounds: what a check finds here is planted, or the check cries wolf.
std::vector<GeneratedStation> GenerateCruise(int count);

}  // namespace kelp
