// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/results_line.hpp"

#include "core/screens/acquire.hpp"
#include "core/text.hpp"

namespace kelp {

std::string ResultsLine(const Grid& datalog, int row) {
  struct Field {
    GridCol col;
    std::size_t width;
  };
  static constexpr Field kFields[] = {{kColVial, 4},  {kColBottle, 6}, {kColDepth, 6}, {kColFilV, 6},
                                      {kColExV, 5},   {kColRb, 8},     {kColRa, 8},    {kColChla, 8},
                                      {kColPhaeo, 7}, {kColAcidR, 7},  {kColQc, 5}};
  std::string line;
  for (const Field& field : kFields)
    line += Padded(OneField(datalog.Text(row, field.col), false), field.width, "L", "S");
  return line;
}

}  // namespace kelp
