// SPDX-License-Identifier: GPL-3.0-or-later
// The tables of the record. docs/file-formats.md describes every column.
#pragma once

namespace kelp {

inline constexpr int kSchemaVersion = 1;
inline constexpr int kApplicationId = 0x4B656C70;  // "Kelp"

/// Makes the tables in an empty database. A row that is there can be neither changed nor removed, also by
/// a data manager's tool: what was accepted once stays.
inline constexpr const char* kSchema = R"sql(
CREATE TABLE event (
  id INTEGER PRIMARY KEY AUTOINCREMENT,
  uid INTEGER NOT NULL UNIQUE,
  run INTEGER NOT NULL,
  step INTEGER NOT NULL,
  undoes INTEGER,
  kind TEXT NOT NULL,
  at TEXT NOT NULL,
  machine TEXT NOT NULL,
  analyst TEXT NOT NULL,
  station TEXT NOT NULL COLLATE NOCASE,
  number TEXT NOT NULL,
  name TEXT NOT NULL,
  cruise TEXT NOT NULL,
  how TEXT NOT NULL,
  reads INTEGER,
  sd REAL,
  mark TEXT,
  rows TEXT
);
CREATE INDEX event_of_run ON event(run);
CREATE INDEX run_begun ON event(station) WHERE kind IN ('load', 'carry', 'whole');
CREATE INDEX event_saved ON event(station) WHERE kind = 'saved';
CREATE TABLE value (
  event INTEGER NOT NULL REFERENCES event(id),
  place TEXT NOT NULL,
  what TEXT NOT NULL,
  before TEXT NOT NULL,
  after TEXT NOT NULL,
  moved INTEGER NOT NULL,
  PRIMARY KEY (event, place)
) WITHOUT ROWID;
CREATE TRIGGER event_no_update BEFORE UPDATE ON event
  BEGIN SELECT RAISE(ABORT, 'the record is append-only'); END;
CREATE TRIGGER event_no_delete BEFORE DELETE ON event
  BEGIN SELECT RAISE(ABORT, 'the record is append-only'); END;
CREATE TRIGGER event_no_replace BEFORE INSERT ON event
  WHEN EXISTS (SELECT 1 FROM event WHERE id = NEW.id OR uid = NEW.uid)
  BEGIN SELECT RAISE(ABORT, 'the record is append-only'); END;
CREATE TRIGGER value_no_update BEFORE UPDATE ON value
  BEGIN SELECT RAISE(ABORT, 'the record is append-only'); END;
CREATE TRIGGER value_no_delete BEFORE DELETE ON value
  BEGIN SELECT RAISE(ABORT, 'the record is append-only'); END;
CREATE TRIGGER value_no_replace BEFORE INSERT ON value
  WHEN EXISTS (SELECT 1 FROM value WHERE event = NEW.event AND place = NEW.place)
  BEGIN SELECT RAISE(ABORT, 'the record is append-only'); END;
CREATE VIEW stations AS
  SELECT begun.station, begun.number, last.name, begun.cruise, last.analyst, last.machine,
         begun.at AS begun, last.at AS last,
         CASE last.kind WHEN 'saved' THEN 'saved' WHEN 'aside' THEN 'set aside'
                        WHEN 'load' THEN 'opened' ELSE 'unfinished' END AS state,
         begun.uid AS run
  FROM event begun JOIN event last
    ON last.id = (SELECT max(id) FROM event WHERE run = begun.uid)
  WHERE begun.kind IN ('load', 'carry', 'whole');
CREATE VIEW values_now AS
  SELECT e.station, e.number, e.cruise, v.place, v.what, v.after AS value, e.at, e.analyst, e.how, e.reads,
         e.sd, e.run
  FROM (SELECT e.run, v.place, max(e.id) AS id FROM event e JOIN value v ON v.event = e.id
        GROUP BY e.run, v.place) newest
  JOIN event e ON e.id = newest.id
  JOIN value v ON v.event = newest.id AND v.place = newest.place
  WHERE e.run = (SELECT uid FROM event b WHERE b.station = e.station
                   AND b.kind IN ('load', 'carry', 'whole') ORDER BY b.id DESC LIMIT 1);
)sql";

}  // namespace kelp
