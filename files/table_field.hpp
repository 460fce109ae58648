// Cells of the station table as blank-free fields of the base file: an empty cell is "-", a blank
// inside a comment is "_".
#pragma once

#include <string>
#include <string_view>

namespace kelp {

std::string FieldFromCell(std::string_view cell);
std::string CellFromField(std::string_view field);

}  // namespace kelp
