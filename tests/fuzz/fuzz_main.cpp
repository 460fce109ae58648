// SPDX-License-Identifier: GPL-3.0-or-later
// One fuzzer; KELP_FUZZ_NAME chooses its target.
#include <cstddef>
#include <cstdint>

#include "tests/fuzz/targets.hpp"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  for (const kelp::FuzzTarget& target : kelp::kFuzzTargets)
    if (std::string_view(target.name) == KELP_FUZZ_NAME)
      target.run({reinterpret_cast<const char*>(data), size});
  return 0;
}
