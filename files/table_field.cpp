// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/table_field.hpp"

#include <algorithm>

namespace kelp {

namespace {

struct Guarded {
  char cell;
  char field;  // behind the backslash
};

constexpr Guarded kGuarded[] = {{'_', '_'}, {'\\', '\\'}, {'\r', 'r'}, {'\n', 'n'}};

}  // namespace

std::string FieldFromCell(std::string_view cell) {
  if (cell.empty()) return "-";
  if (cell == "-") return "\\-";
  std::string field;
  for (const char c : cell) {
    const auto* const guarded =
        std::find_if(std::begin(kGuarded), std::end(kGuarded), [c](const Guarded& g) { return g.cell == c; });
    if (guarded != std::end(kGuarded))
      field += {'\\', guarded->field};
    else
      field += c == ' ' ? '_' : c;
  }
  return field;
}

std::string CellFromField(std::string_view field) {
  if (field == "-") return "";
  if (field == "\\-") return "-";
  std::string cell;
  for (std::size_t i = 0; i < field.size(); ++i) {
    const char c = field[i];
    const char next = c == '\\' && i + 1 < field.size() ? field[i + 1] : '\0';
    const auto* const guarded = std::find_if(std::begin(kGuarded), std::end(kGuarded),
                                             [next](const Guarded& g) { return g.field == next; });
    if (next != '\0' && guarded != std::end(kGuarded)) {
      cell += guarded->cell;
      ++i;
    } else {
      cell += c == '_' ? ' ' : c;
    }
  }
  return cell;
}

}  // namespace kelp
