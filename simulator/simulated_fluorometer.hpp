// SPDX-License-Identifier: GPL-3.0-or-later
// A bench fluorometer that lives in the program: for trying Kelp, for training and for tests with no
// instrument at hand. It keeps its own time, one second a line, and the same seed and the same handling
// give the same lines on every machine.
#pragma once

#include <array>
#include <cstdint>
#include <random>
#include <string>

namespace kelp {

/// What a blank of pure acetone reads.
inline constexpr double kBlankLevel = 0.005;

/// What a tube of extract reads before acid, and by what it falls.
struct TubeLevels {
  double Rb;
  double AcidRatio;
};

class SimulatedFluorometer {
 public:
  explicit SimulatedFluorometer(std::uint32_t seed);

  /// The holder is emptied; a tube or standard with this level is put in. The reading is unsteady for
  /// three seconds and settles within two more.
  void Empty();
  void Load(double level);

  /// Acid is added: within four seconds the reading falls to the level divided by `ratio`.
  void AddAcid(double ratio);

  /// The SD of the noise from now on; 0 gives back the built-in noise, a ten-thousandth of the level.
  void SetNoise(double sd);

  /// A second passes; the reading at its end, and the line that the instrument sends of it.
  double NextReading();
  std::string NextLine();

  /// The levels of sample `number`, which follow from the seed. Rb is 0.6 to 6, the ratio 1.5 to 2.
  [[nodiscard]] TubeLevels Sample(int number) const;

 private:
  double Uniform();
  [[nodiscard]] double Steady() const;
  void ShuffleNoise();

  std::uint32_t seed_;
  std::mt19937 random_;
  double level_ = 0;
  double from_ = 0;                   ///< the reading that the present change began with
  double unsteady_ = 0;               ///< seconds of unsteady reading that the change begins with
  double settling_ = 0;               ///< seconds in which the reading then goes to the level
  double since_ = 0;                  ///< seconds since the change began
  double reading_ = 0;                ///< the last one, without noise
  double noise_ = 0;                  ///< the SD that was set; 0 for the built-in one
  std::array<int, 10> pattern_ = {};  ///< noise of ten lines, in units of the last digit
  std::size_t line_ = 0;
};

}  // namespace kelp
