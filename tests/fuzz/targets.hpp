// SPDX-License-Identifier: GPL-3.0-or-later
// What the fuzzers throw at the program, one function for each kind of text that comes from outside. Each
// aborts when the program breaks a promise; without a fuzzer they replay the corpus. Where a text has two
// parts or more, 0xFF stands between them.
#pragma once

#include <string_view>
#include <vector>

namespace kelp {

struct FuzzTarget {
  const char* name;  ///< also of its folder in tests/fuzz/corpus
  void (*run)(std::string_view data);
};

extern const std::vector<FuzzTarget> kFuzzTargets;

}  // namespace kelp
