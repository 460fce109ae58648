// SPDX-License-Identifier: GPL-3.0-or-later
#include "record/event_rows.hpp"

namespace kelp {

RecordedEvent EventAt(const Statement& row, int first) {
  RecordedEvent event;
  const auto text = [&](int column) { return row.Text(first + column); };
  event.Uid = row.Number(first + 1);
  event.Run = row.Number(first + 2);
  event.Step = row.Number(first + 3);
  event.Undoes = row.Number(first + 4);
  event.Kind = text(5);
  event.At = text(6);
  event.Machine = text(7);
  event.Analyst = text(8);
  event.Station = text(9);
  event.Number = text(10);
  event.Name = text(11);
  event.Cruise = text(12);
  event.How = text(13);
  event.Reads = static_cast<int>(row.Number(first + 14));
  event.Sd = row.Real(first + 15);
  event.Mark = text(16);
  event.Rows = text(17);
  return event;
}

void AddValuesOf(Statement& values, std::int64_t id, std::vector<RecordedValue>& list) {
  values.Bind(1, id);
  while (values.Row())
    list.push_back({values.Text(0), values.Text(1), values.Text(2), values.Text(3), values.Number(4) != 0});
}

std::vector<RecordedValue> ValuesOf(Statement& values, std::int64_t id) {
  std::vector<RecordedValue> list;
  AddValuesOf(values, id, list);
  return list;
}

}  // namespace kelp
