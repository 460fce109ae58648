// SPDX-License-Identifier: GPL-3.0-or-later
#include "simulator/generated_cruise.hpp"

#include <cmath>

#include "core/date_time.hpp"
#include "core/numbers.hpp"
#include "core/text.hpp"

namespace kelp {

std::string GeneratedStation::Text() const {
  const auto number = [](double value) { return Fixed(value, 4); };
  std::string text = Name + "\r\nZEPHOR\r\n" + number(Blank) + " " + number(EndBlank) +
                     " 0.0 0.0\r\n0.0 0.0 0.0 0.0\r\n" + ProcNum + "  " + std::to_string(Samples.size()) +
                     " " + F + " " + Tau + "\r\n";
  for (const GeneratedSample& s : Samples) {
    const double k = 8 / 0.138 * Val(Tau) / (Val(Tau) - 1) * Val(F);
    const double rb = s.Rb - Blank;
    const double ra = s.Ra - Blank;
    text += "2 " + s.Bottle + " " + s.Depth + " 138 8 " + s.Tube + " " + Fixed(rb / ra, 2) + " " +
            number(s.Rb) + " " + number(s.Ra) + " " + Fixed((rb - ra) * k, 3) + " " +
            Fixed((Val(Tau) * ra - rb) * k, 3) + " - - -\r\n";
  }
  return text + "\r\n\r\n     B a y T R E K   F l u o r o m e t e r   D a t a   L o g\r\n\r\n" +
         "    Expedition: BayTREK " + Cruise + "                Cast " + ProcNum + "\r\n" +
         "    Ship: Sea Lantern                 Station: " + Name + "\r\n" + "    Filtered: " + Filtered +
         "           Fluorometer: ZEPHOR\r\n    Read: " + Read + "      F=" + F + ", tau=" + Tau +
         "\r\n    Read by: TQB        begin/end: " + number(Blank) + "/" + number(EndBlank) +
         "\r\n           Copro 3-1: " + number(Copro1) + "/" + number(Copro1End) +
         "\r\n           Copro 2-5: " + number(Copro2) + "/" + number(Copro2End) + "\r\n\r\n";
}

std::vector<GeneratedStation> GenerateCruise(int count) {
  unsigned state = 1;
  const auto noise = [&](double size) {
    state = state * 1664525U + 1013904223U;
    return size * (static_cast<double>(state >> 8U) / 8388608.0 - 1);
  };
  std::vector<GeneratedStation> stations;
  const LocalTime start = *ParseDateTime("11/01/2026 00:30:00");
  int tube = 0;
  for (int i = 0; i < count; ++i) {
    GeneratedStation station{PaddedProcNum(std::to_string(i + 1))};
    const LocalTime read = start + std::chrono::hours(6 * i);
    station.Read = ShortDate(read) + " " + LongTime(read);
    station.Filtered = ShortDate(read - std::chrono::hours(24)) + " " + LongTime(read);
    station.Blank += noise(0.0008);
    station.EndBlank += noise(0.0008);
    for (double* copro : {&station.Copro1, &station.Copro1End}) *copro += noise(0.01);
    for (double* copro : {&station.Copro2, &station.Copro2End}) *copro += noise(0.02);
    const double peak = 30 + noise(12);
    const double height = 3 + noise(1.5);
    for (int bottle = 1; bottle <= 12; ++bottle) {
      const double depth = 5 + (bottle - 1) * 14;
      const double rb = 0.3 + height * std::exp(-std::pow((depth - peak) / 40, 2));
      station.Samples.push_back({Padded(std::to_string(bottle), 2, "L", "0"), Fixed(depth, 0),
                                 std::to_string(++tube % 900 + 1), rb,
                                 rb / (1.75 + noise(0.04) - depth / 700)});
    }
    stations.push_back(station);
  }
  return stations;
}

}  // namespace kelp
