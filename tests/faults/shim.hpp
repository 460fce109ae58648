// SPDX-License-Identifier: GPL-3.0-or-later
// Stands between a program and the system calls with which it changes files below one folder: counts them,
// notes them, makes the N-th fail, or ends the program there as a power cut would.
#pragma once

#include <unistd.h>

#include <cstdlib>
#include <string>
#include <vector>

namespace kelp {

struct DiskCall {
  std::string Name;  ///< "open", "write", "rename", ...
  std::string Path;
  std::string NewPath = {};  ///< of a rename or link
  bool Failed = false;
};

struct Faults {
  std::string Root;  ///< calls for places below this folder count; "" for none
  int At = 0;        ///< the call at which it happens, counted from 1; 0 for none
  bool Kill = false;
  bool HalfWritten = false;  ///< the kill comes after half of the bytes of a write
  bool After = false;        ///< the kill comes when the call has been made
  std::string Durable = {};  ///< a power cut instead of a kill: what outlives it is written into this folder
  int SlowFlush = 0;         ///< milliseconds that every flush takes longer
  int Error = 0;             ///< instead of a kill: the call fails with this error number
  bool ForGood = false;      ///< and all after it too
  std::string Fails = {};    ///< every call of this name fails
  bool ShortWrites = false;  ///< every write takes half of the bytes only
  int Failures = 0;
  std::vector<DiskCall> Calls = {};
};

/// The faults of this process. In a preloaded library they come from the environment.
Faults& TheFaults();

/// Where the calls that are tried begin: the same in every run, another with KELP_FAULTS_SEED=n.
inline unsigned FaultSeed() {
  const char* seed = std::getenv("KELP_FAULTS_SEED");
  return seed == nullptr ? 0U : static_cast<unsigned>(std::strtoul(seed, nullptr, 10));
}

/// Temporary folders in memory: what counts is which calls are made, not how long a disk takes for them.
inline void UseMemory() {
  if (::access("/dev/shm", W_OK) == 0) ::setenv("TMPDIR", "/dev/shm", 1);
}

}  // namespace kelp
