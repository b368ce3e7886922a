#include "analysis/RunDatabase.h"

#include <array>

namespace korvel {

namespace {

constexpr std::array<const char*, 7> tables = {"runs",       "reaches",  "points", "series",
                                               "statistics", "observed", "targets"};

const char* const schema = R"sql(
CREATE TABLE runs (                -- one results file each
  id INTEGER PRIMARY KEY,
  name TEXT NOT NULL UNIQUE,       -- of the file; a run of the same name replaces it
  title TEXT NOT NULL,             -- as in the file
  percentile_mode INTEGER NOT NULL -- as in the file: 2 the 90, 3 the 99, else the 95 percentile or the mean
);
CREATE TABLE reaches (
  run INTEGER NOT NULL REFERENCES runs (id) ON DELETE CASCADE,
  number INTEGER NOT NULL,         -- as in the file
  name TEXT NOT NULL,
  length REAL,                     -- km; NULL: points name the reach, but the file has no line for it
  next INTEGER,                    -- number of the reach that it runs into; 0 at a mouth
  PRIMARY KEY (run, number)
) WITHOUT ROWID;
CREATE TABLE points (
  run INTEGER NOT NULL,
  id INTEGER NOT NULL,             -- place in the file, from 1
  reach INTEGER NOT NULL,
  distance REAL NOT NULL,          -- km from the reach's upper end
  to_mouth REAL,                   -- km to the end of the river system; NULL where reaches run in a circle
  feature TEXT NOT NULL,           -- its name, '' for none
  side TEXT NOT NULL,              -- 'U/S' above a feature, 'D/S' below it, or ''
  type INTEGER NOT NULL,           -- of the feature; 99: interpolated
  PRIMARY KEY (run, id),
  FOREIGN KEY (run, reach) REFERENCES reaches (run, number) ON DELETE CASCADE
) WITHOUT ROWID;
CREATE TABLE series (              -- of all runs
  id INTEGER PRIMARY KEY,
  name TEXT NOT NULL,              -- 'Flow', 'BOD (Conc)', 'BOD (Load)'
  kind TEXT NOT NULL,              -- 'flow', 'concentration' or 'load'
  determinand TEXT                 -- NULL for the flow
);
CREATE TABLE statistics (
  run INTEGER NOT NULL,
  point INTEGER NOT NULL,
  series INTEGER NOT NULL REFERENCES series (id),
  statistic TEXT NOT NULL,         -- 'mean', 'p90', 'p95' or 'p99'
  value REAL NOT NULL,             -- in the units of the model's data file
  low REAL,                        -- confidence limits; NULL for the flow, which has none
  high REAL,
  PRIMARY KEY (run, point, series, statistic),
  FOREIGN KEY (run, point) REFERENCES points (run, id) ON DELETE CASCADE
) WITHOUT ROWID;
CREATE TABLE observed (            -- where something was observed
  run INTEGER NOT NULL,
  point INTEGER NOT NULL,
  series INTEGER NOT NULL REFERENCES series (id),
  statistic TEXT NOT NULL,
  value REAL NOT NULL,
  PRIMARY KEY (run, point, series, statistic),
  FOREIGN KEY (run, point) REFERENCES points (run, id) ON DELETE CASCADE
) WITHOUT ROWID;
CREATE TABLE targets (             -- where there is a quality target
  run INTEGER NOT NULL,
  point INTEGER NOT NULL,
  series INTEGER NOT NULL REFERENCES series (id),
  value REAL NOT NULL,
  PRIMARY KEY (run, point, series),
  FOREIGN KEY (run, point) REFERENCES points (run, id) ON DELETE CASCADE
) WITHOUT ROWID;
CREATE INDEX points_of_reach ON points (run, reach);
CREATE INDEX points_of_feature ON points (feature);
CREATE INDEX series_by_name ON series (name);
CREATE VIEW tidy AS                -- one row a run, point, series and statistic
SELECT runs.name AS run, points.reach AS reach, reaches.name AS reach_name, points.distance AS distance,
  points.to_mouth AS to_mouth, points.feature AS feature, points.side AS side, points.type AS type,
  series.name AS series, statistics.statistic AS statistic, statistics.value AS value,
  statistics.low AS low, statistics.high AS high, observed.value AS observed, targets.value AS target
FROM statistics
JOIN runs ON runs.id = statistics.run
JOIN points ON points.run = statistics.run AND points.id = statistics.point
JOIN reaches ON reaches.run = points.run AND reaches.number = points.reach
JOIN series ON series.id = statistics.series
LEFT JOIN observed ON observed.run = statistics.run AND observed.point = statistics.point
  AND observed.series = statistics.series AND observed.statistic = statistics.statistic
LEFT JOIN targets ON targets.run = statistics.run AND targets.point = statistics.point
  AND targets.series = statistics.series;
-- How many rows share the beginnings of a key, of a usual database: so that questions take the shortest way.
ANALYZE;
INSERT INTO sqlite_stat1 VALUES
  ('runs', 'sqlite_autoindex_runs_1', '100 1'),
  ('reaches', 'reaches', '1400 14 1'),
  ('points', 'points', '30000 300 1'),
  ('points', 'points_of_reach', '30000 300 20'),
  ('points', 'points_of_feature', '30000 100'),
  ('series', 'series_by_name', '20 1'),
  ('statistics', 'statistics', '2000000 20000 70 4 1'),
  ('observed', 'observed', '100000 1000 20 4 1'),
  ('targets', 'targets', '200000 2000 7 1');
)sql";

} // namespace

const DatabaseKind runDatabase = {"database of Korvel results", 0x4B52564C, 1, schema, tables};

} // namespace korvel
