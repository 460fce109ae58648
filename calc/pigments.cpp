// SPDX-License-Identifier: GPL-3.0-or-later
#include "calc/pigments.hpp"

#include <cmath>

#include "platform/error.hpp"

namespace kelp {

namespace {

constexpr double kDefaultExV = 8.0;
constexpr double kDefaultFilV = 138.0;

double Divide(double a, double b, const char* what) {
  if (b == 0) throw RunTimeError(ErrorKind::DivisionByZero, what);
  return a / b;
}

double Finite(double value) {
  if (!std::isfinite(value))
    throw RunTimeError(ErrorKind::Overflow, "a result is too large; check F, tau and volumes");
  return value;
}

struct Limits {
  double high;
  double low;
};

// The first limits that the ratio lies outside of decide: "****", "***", "**", "*".
std::string_view FlagBy(const Limits (&rows)[4], double ratio) {
  static constexpr std::string_view kFlags[] = {"****", "***", "**", "*"};
  for (int i = 0; i < 4; ++i)
    if (ratio > rows[i].high || ratio < rows[i].low) return kFlags[i];
  return "";
}

constexpr Limits kDeep[4] = {{1.9, 0.7}, {1.8, 0.8}, {1.7, 0.9}, {1.6, 1.0}};
constexpr Limits kMiddle[4] = {{2.05, 0.8}, {1.95, 0.9}, {1.85, 1.0}, {1.75, 1.1}};
constexpr Limits kUpper[4] = {{2.15, 1.15}, {2.05, 1.25}, {1.95, 1.35}, {1.85, 1.45}};
constexpr Limits kSurface[4] = {{2.3, 1.3}, {2.2, 1.4}, {2.1, 1.5}, {2.0, 1.6}};

}  // namespace

Pigments CalcPigments(const PigmentInput& in) {
  const double exv = in.ExV == 0 ? kDefaultExV : in.ExV;
  const double filv = in.FilV == 0 ? kDefaultFilV : in.FilV;
  const double k1 =
      Divide(in.Tau, in.Tau - 1, "tau is 1: tau / (tau - 1) divides by zero; check the box \"tau = \"");
  const double k = exv / (filv / 1000) * k1;
  // Two unit divisors, from the days of other units, stay in the formulas.
  Pigments out;
  out.Chla = Finite((in.Rb - in.Ra) * k * in.F / 1 / 1);
  out.Phaeo = Finite((in.Tau * in.Ra - in.Rb) * k * in.F / 1 / 1);
  out.AcidR = Finite(
      Divide(in.Rb, in.Ra, "Ra less blank is 0: the acid ratio divides by zero; check Ra and the blank"));
  return out;
}

std::string_view QcFlag(int depth, double acidRatio) {
  if (depth > 120) return acidRatio > 1.5 || acidRatio < 1.0 ? FlagBy(kDeep, acidRatio) : "";
  if (depth > 80) return acidRatio > 2.0 || acidRatio < 1.5 ? FlagBy(kMiddle, acidRatio) : "";
  if (depth > 40) return FlagBy(kUpper, acidRatio);
  if (depth > 0) return FlagBy(kSurface, acidRatio);
  return "";
}

}  // namespace kelp
