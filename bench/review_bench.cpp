// SPDX-License-Identifier: GPL-3.0-or-later
// A cruise from its files to the finished page, as `kelp-console review FOLDER --html FILE` does it.
#include <benchmark/benchmark.h>

#include "review/html_review.hpp"
#include "simulator/generated_cruise.hpp"
#include "stage/memory_disk.hpp"

namespace kelp {
namespace {

void BM_ReviewToHtml(benchmark::State& state) {
  MemoryDisk disk;
  for (const GeneratedStation& station : GenerateCruise(static_cast<int>(state.range(0))))
    disk.Files["q:\\c\\chl" + station.ProcNum] = station.Text();
  for (auto step : state) {
    const Review review = MakeReview(ReadCruise(disk, "q:\\c\\"),
                                     {0.010, {"3-1", 1.53, 0.3}, {"2-5", 5.03, 0.5}, 0.00987, 2.011});
    std::vector<const Station*> shown;
    for (const Station& station : review.Stations) shown.push_back(&station);
    std::size_t bytes = 0;
    WriteHtmlReview(review, MakeFinalData(review.Cruise, {}), shown,
                    [&](std::string_view text) { bytes += text.size(); });
    benchmark::DoNotOptimize(bytes);
  }
}
BENCHMARK(BM_ReviewToHtml)->Arg(60)->Arg(2000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace kelp
