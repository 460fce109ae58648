// SPDX-License-Identifier: GPL-3.0-or-later
// One pass of the read loop, as it runs between two readings and with one.
#include <benchmark/benchmark.h>

#include "stage/program.hpp"

namespace kelp {

namespace {

// A station that reads its blank.
void ReadBlank(Program& program) {
  program.OpenStation(3);
  program.Click("frmAcquire", "Command1");
  program.Click("frmAcquire", "Command1");
  program.Read(0.005, 20);
}

void PassWithoutReading(benchmark::State& state) {
  Program program;
  ReadBlank(program);
  for (auto _ : state) Pass(program.kelp);
}
BENCHMARK(PassWithoutReading);

void PassWithReading(benchmark::State& state) {
  Program program;
  ReadBlank(program);
  for (auto _ : state) {
    program.platform.Feed("\r\nA =  0.005 (RAW)");
    Pass(program.kelp);
    program.run().ReadCount = 20;  // a step never has more reads than 16 bits hold
  }
}
BENCHMARK(PassWithReading);

}  // namespace

}  // namespace kelp
