// SPDX-License-Identifier: GPL-3.0-or-later
// Replays the corpus of the fuzzers.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "tests/fuzz/targets.hpp"

namespace kelp {

TEST(Fuzz, TheCorpusBreaksNoPromise) {
  for (const FuzzTarget& target : kFuzzTargets) {
    int files = 0;
    for (const auto& entry : std::filesystem::directory_iterator(KELP_SOURCE_DIR "/tests/fuzz/corpus/" +
                                                                 std::string(target.name))) {
      std::ifstream file(entry.path(), std::ios::binary);
      SCOPED_TRACE(entry.path());
      target.run(std::string{std::istreambuf_iterator<char>(file), {}});
      ++files;
    }
    EXPECT_GT(files, 2) << target.name;
  }
}

}  // namespace kelp
