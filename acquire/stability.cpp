// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquire/stability.hpp"

#include <algorithm>
#include <numeric>

#include "acquire/averaging.hpp"
#include "core/config.hpp"

namespace kelp {

namespace {

constexpr double kLeastSpan = 6;  // in SD criteria
constexpr double kMargin = 0.08;  // of the span, above and below

void SetScale(StabilityTrace& trace, double criterion) {
  const auto [least, most] = std::minmax_element(trace.Reads.begin(), trace.Reads.end());
  auto low = static_cast<double>(*least);
  auto high = static_cast<double>(*most);
  if (trace.Full) {
    low = std::min(low, trace.Mean - trace.Sd);
    high = std::max(high, trace.Mean + trace.Sd);
  }
  const double span = std::max({high - low, kLeastSpan * criterion, 1e-6});
  const double middle = (low + high) / 2;
  trace.Low = middle - span * (0.5 + kMargin);
  trace.High = middle + span * (0.5 + kMargin);
}

}  // namespace

StabilityTrace StabilityOf(const Kelp& kelp) {
  const std::vector<float>& slots = kelp.run.RawReads;
  const auto next = static_cast<std::size_t>(std::max(0, int{kelp.run.ReadIndex}));
  StabilityTrace trace;
  trace.Wanted = static_cast<int>(slots.size());
  if (next >= slots.size()) return trace;
  trace.Full = AverageExists(kelp.run);
  const auto index = static_cast<std::ptrdiff_t>(next);
  // The slot written next holds the oldest read of a full buffer; before, reads begin at slot 0.
  if (trace.Full) trace.Reads.assign(slots.begin() + index, slots.end());
  trace.Reads.insert(trace.Reads.end(), slots.begin(), slots.begin() + index);
  if (trace.Reads.empty()) return trace;
  trace.Mean =
      std::accumulate(trace.Reads.begin(), trace.Reads.end(), 0.0) / static_cast<double>(trace.Reads.size());
  trace.Sd = trace.Full ? kelp.loop.Sd : 0;
  SetScale(trace, CfgNumber(kelp.run, kCfgSdCriterion));
  return trace;
}

}  // namespace kelp
