// SPDX-License-Identifier: GPL-3.0-or-later
// The program-wide run state: one station at a time, shared by every screen and file routine.
#pragma once

#include <array>
#include <cstdint>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "core/counter16.hpp"
#include "core/strip_chart.hpp"
#include "platform/platform.hpp"

namespace kelp {

inline constexpr int kCfgLineCount = 41;

/// Strip-chart trace colours, as BGR numbers.
enum Trace : std::uint32_t {
  kTraceMagenta = 0xFF00FF,  ///< waiting to load
  kTraceGreen = 0x00FF00,    ///< reading a blank, standard, copro or Rb
  kTraceBlue = 0xFF0000,     ///< reading Ra
  kTraceRed = 0x0000FF,      ///< after a save or skip
  kTraceBlack = 0,
};

/// Columns of a sample's row in the station table.
enum TableCol {
  kTblCode = 0,
  kTblBottle = 1,
  kTblDepth = 2,
  kTblFilV = 3,
  kTblExV = 4,
  kTblTube = 5,
  kTblAcidR = 6,
  kTblRb = 7,
  kTblRa = 8,
  kTblChla = 9,
  kTblPhaeo = 10,
  kTblFiltererRemark = 11,
  kTblReaderRemark = 12,
  kTblQc = 13,
};

/// The station table: 105 rows of 14 text cells. Rows 0 to 4 are the station header, row n + 4 is
/// sample n. An index outside is "Subscript out of range".
class StationTable {
 public:
  static constexpr int kRows = 105;
  static constexpr int kCols = 14;
  static constexpr int kFirstSampleRow = 5;

  std::string& operator()(int row, int col) { return cells_[Index(row, col)]; }
  const std::string& operator()(int row, int col) const { return cells_[Index(row, col)]; }
  void Clear() { cells_ = {}; }

 private:
  static std::size_t Index(int row, int col);
  std::array<std::string, static_cast<std::size_t>(kRows* kCols)> cells_ = {};
};

/// A save that stopped half way: the data it was to write and the steps it had done, so that they are not
/// done twice when the save is repeated.
struct UnfinishedSave {
  std::string Data;
  std::set<std::string> Done;
};

/// Where a station whose readings were restored after a crash goes on.
enum class ResumeAt {
  Nothing,  ///< nothing was restored, or the run goes on already
  Step,     ///< at the step that was under way
  Ra,       ///< at the acid of a sample that has its Rb
  Chooser,  ///< behind the last sample
};

/// What belongs to one run of the acquisition screen: set back as a whole by `= {}`, so that nothing of a run
/// that is over is found in the next.
struct StationRun {
  StationTable SampTbl;
  Counter16 SampCount;
  Counter16 SampNum = 1;
  Counter16 TubeNum;
  std::string ProcNum;
  std::string BaseFile;
  std::string CsvFile;
  std::string RawFile;
  std::string PrnFile;
  std::string TmpFile;
  std::string PrnBackupFile;
  std::string DbCsvFile;
  LocalTime MarkTime{};
  std::string CastType;
  std::string CtdDate;
  std::string CtdTime;
  std::string RunDate;
  std::string ReportStr;
  std::string StepName = "BLANK";
  std::uint32_t TraceColor = kTraceMagenta;
  bool LabCalRun = false;
  bool ResultsSaved = false;
  UnfinishedSave Unfinished;
  bool ProcNumEdited = false;
  bool BottleEdited = false;  ///< a starting bottle was typed for the station about to be set up
  bool VialEdited = false;    ///< a starting vial was typed for it: it is the tube of the first sample
  bool RunStarted = false;
  bool StartUp = true;
  bool Reopened = false;  ///< the station brought its own header: F, tau, fluorometer and analyst end with it

  // Reading and averaging.
  std::vector<float> RawReads;
  int ReadsInBuffer = 0;   ///< reads since the buffer was cleared, at most its size
  bool SdIsValid = false;  ///< the SD is one of the buffer as it stands
  Counter16 ReadIndex;
  Counter16 ReadCount;
  float CurReading = 0;
  std::string LastRawText;
  float RbReading = 0;
  float RaReading = 0;
  bool RaAccepted = false;
  bool ReadFlag = false;        ///< the sample's Rb has been taken and Ra is next
  bool ReadInProgress = false;  ///< a reading is under way
  bool Loaded = false;          ///< the item that the button names is in the holder: only it can be saved
  bool SecondCopro = false;     ///< the second copro is under way, where the names do not tell
  int ReplaceSample = 0;        ///< the sample that the operator went back to: its cells are written anew
  bool ErrorIsTold = false;     ///< an error of line 13 was told in this step
  std::string BeginBlankText;
  std::string EndBlankText;
  std::string LowStdText;
  std::string HighStdText;
  ResumeAt Resume = ResumeAt::Nothing;
  std::string PauseStore;  ///< the instruction text while paused
  StripChart Chart;
};

/// The run state: the run under way, and what the program knows beyond it. `run.SampNum` and all other names
/// stand side by side.
struct RunState : StationRun {
  std::array<std::string, kCfgLineCount> CfgLines;
  std::string CruiseID;
  std::string ShipName;
  std::string DataOutPath;
  std::string BackupDir;
  std::string CoproLowStd;
  std::string CoproHighStd;
  Counter16 ReadsToAverage;
  Counter16 MinReads;
  Counter16 ReadInterval;
  std::string LoginInitials;  ///< the analyst of the login
  int StationLoads = 0;       ///< grows with every station loaded
  long Stores = 0;            ///< grows with every value put into a place

  StationRun& station() { return *this; }
};

/// The state of the read loop, which a front end runs pass by pass.
struct ReadLoopState {
  bool Running = false;
  bool StopFlag = false;
  std::string Accumulator;
  double Sd = 0;
  float UpperLimit = 0;
  bool PortOpened = false;         ///< the port was opened once: a lost line is tried again
  std::int64_t LastReadingAt = 0;  ///< Platform::Milliseconds of the last reading, or of the start
  std::int64_t LastTryAt = 0;      ///< of the last attempt to open a lost line again
  std::int64_t LastNoticeAt = 0;   ///< of the last status text about a silent line
  bool Silent = false;             ///< the status bar says that no readings come
  /// The reading (as the chart counts them) whose save was refused; 0 for none.
  unsigned long RefusedAtReading = 0;
};

/// The repeating timer of the per-read log.
struct TimerState {
  bool Enabled = false;
  int Interval = 0;  ///< milliseconds
};

/// Sets every slot of the ring buffer and the read counter and index to 0, so that the next item's mean
/// begins with its own first read.
void ClearRawReads(RunState& run);

/// Sets every cell of the station table to "".
void ClearTable(RunState& run);

/// Splits a text line on runs of blanks into the cells of a table row; cells are appended to, so the
/// row must be empty. A line that begins with a blank is "Invalid procedure call", a row of 105 or
/// more or a 15th field "Subscript out of range".
void SplitToRow(StationTable& table, std::string_view line, int row);
inline void SplitToRow(RunState& run, std::string_view line, int row) { SplitToRow(run.SampTbl, line, row); }

/// The table row of the current sample.
inline int SampleRow(const RunState& run) { return run.SampNum + StationTable::kFirstSampleRow - 1; }

}  // namespace kelp
