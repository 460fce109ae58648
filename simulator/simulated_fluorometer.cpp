// SPDX-License-Identifier: GPL-3.0-or-later
#include "simulator/simulated_fluorometer.hpp"

#include <algorithm>
#include <cmath>
#include <utility>

#include "acquire/instrument_line.hpp"
#include "core/numbers.hpp"

namespace kelp {

namespace {

constexpr double kDarkLevel = 0.0004;  // an empty holder
constexpr double kUnsteadySeconds = 3;
constexpr double kSettlingSeconds = 2;
constexpr double kAcidSeconds = 4;
constexpr double kDigit = 0.0001;
// The built-in noise stays well below an SD of 0.0010, so that a settled reading can be saved.
constexpr double kNoisePart = 0.0001;
constexpr double kMostNoise = 0.0006;

double ToDigits(double value) { return std::round(value / kDigit) * kDigit; }

// A number from 0 to below 1, the same on every machine.
double UniformOf(std::mt19937& random) { return static_cast<double>(random()) / 4294967296.0; }

}  // namespace

SimulatedFluorometer::SimulatedFluorometer(std::uint32_t seed) : seed_(seed), random_(seed) {
  level_ = reading_ = kDarkLevel;
  ShuffleNoise();
}

double SimulatedFluorometer::Uniform() { return UniformOf(random_); }

void SimulatedFluorometer::Empty() { Load(kDarkLevel); }

void SimulatedFluorometer::Load(double level) {
  from_ = reading_;
  level_ = ToDigits(level);
  unsteady_ = kUnsteadySeconds;
  settling_ = kSettlingSeconds;
  since_ = 0;
  ShuffleNoise();
}

void SimulatedFluorometer::AddAcid(double ratio) {
  from_ = reading_;
  level_ = ToDigits(level_ / ratio);
  unsteady_ = 0;
  settling_ = kAcidSeconds;
  since_ = 0;
  ShuffleNoise();
}

void SimulatedFluorometer::SetNoise(double sd) {
  noise_ = sd;
  ShuffleNoise();
}

// The noise of ten lines adds up to nothing: the average of any ten settled lines is the level to its
// last digit, whichever ten they are, so that who saves by hand stores what Autoread stores.
void SimulatedFluorometer::ShuffleNoise() {
  const double sd = noise_ > 0 ? noise_ : std::clamp(level_ * kNoisePart, kDigit, kMostNoise);
  for (std::size_t i = 0; i < pattern_.size(); i += 2) {
    const int swing = std::max(1, static_cast<int>(std::lround(sd * (0.6 + 0.7 * Uniform()) / kDigit)));
    pattern_[i] = swing;
    pattern_[i + 1] = -swing;
  }
  for (std::size_t i = pattern_.size() - 1; i > 0; --i)
    std::swap(pattern_[i], pattern_[static_cast<std::size_t>(Uniform() * static_cast<double>(i + 1))]);
}

double SimulatedFluorometer::Steady() const {
  if (since_ >= unsteady_ + settling_) return level_;
  const double left = 1 - (since_ - unsteady_) / settling_;
  return level_ + (from_ - level_) * left * left;
}

double SimulatedFluorometer::NextReading() {
  since_ += 1;
  // While the tube is put in and the lid closed the reading jumps about between dark and bright.
  if (since_ <= unsteady_)
    from_ = reading_ = std::max(level_, 0.05) * (0.2 + 1.6 * Uniform());
  else
    reading_ = Steady();
  const double noise = pattern_[line_++ % pattern_.size()] * kDigit;
  return std::max(kDigit, ToDigits(reading_ + noise));
}

std::string SimulatedFluorometer::NextLine() {
  const double reading = NextReading();
  return InstrumentLine(Fixed(reading, reading < 99.99995 ? 4 : 3));
}

TubeLevels SimulatedFluorometer::Sample(int number) const {
  std::seed_seq seeds{seed_, static_cast<std::uint32_t>(number)};
  std::mt19937 random(seeds);
  const double rb = ToDigits(0.6 * std::pow(10.0, UniformOf(random)));
  return {rb, 1.5 + 0.5 * UniformOf(random)};
}

}  // namespace kelp
