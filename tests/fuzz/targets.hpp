// SPDX-License-Identifier: GPL-3.0-or-later
// What the fuzzers throw at the program, one function for each kind of text that comes from outside. Each
// aborts when the program breaks a promise; without a fuzzer they replay the corpus.
#pragma once

#include <string_view>

namespace kelp {

struct FuzzTarget {
  const char* name;  ///< also of its folder in tests/fuzz/corpus
  void (*run)(std::string_view data);
};

void FuzzInstrument(std::string_view data);  ///< the serial line, in pieces that 0xFF separates
void FuzzConfig(std::string_view data);      ///< "c:\kelp\kelp.cfg"
void FuzzBaseFile(std::string_view data);    ///< a base file, with a report or without
void FuzzCtd(std::string_view data);         ///< CTD header and mark file, separated by 0xFF
void FuzzJournal(std::string_view data);     ///< lines without check sums, which are put behind them
void FuzzScript(std::string_view data);      ///< an operator script

inline constexpr FuzzTarget kFuzzTargets[] = {{"instrument", FuzzInstrument}, {"config", FuzzConfig},
                                              {"base", FuzzBaseFile},         {"ctd", FuzzCtd},
                                              {"journal", FuzzJournal},       {"script", FuzzScript}};

}  // namespace kelp
