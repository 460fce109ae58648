// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures, the page and the command of the review.
#include <gtest/gtest.h>

#include <chrono>
#include <sstream>

#include "console/review/review_command.hpp"
#include "platform/error.hpp"
#include "review/chart_picture.hpp"
#include "review/drawing.hpp"
#include "review/profile_picture.hpp"
#include "review/review.hpp"
#include "review/svg.hpp"
#include "simulator/generated_cruise.hpp"
#include "stage/memory_disk.hpp"
#include "tests/support/temp_folder.hpp"

namespace kelp {

namespace {

Station StationWith(const std::vector<StationSample>& samples) {
  StationFile file;
  file.ProcNum = "007";
  file.Station = "<93.3 & 70>";
  file.Samples = samples;
  return MeasuredStation(file);
}

StationSample SampleAt(const char* depth, const char* chla, const char* ratio, const char* flag) {
  StationSample sample;
  sample.Depth = depth;
  sample.Rb = sample.Ra = "1.0000";
  sample.Chla = sample.Phaeo = chla;
  sample.AcidR = ratio;
  sample.Flag = flag;
  return sample;
}

// Every stroke lies on its sheet: nothing is lost at an edge.
void ExpectOnSheet(const Picture& picture) {
  const Drawing drawing = Draw(picture);
  const auto inside = [&](Point at) {
    EXPECT_TRUE(at.X >= -0.5 && at.X <= drawing.Width + 0.5 && at.Y >= -0.5 && at.Y <= drawing.Height + 0.5)
        << picture.Title << " " << at.X << "," << at.Y;
  };
  for (const Drawn& item : drawing.Items) {
    if (const auto* line = std::get_if<DrawnLine>(&item))
      for (const Point& at : line->Points) inside(at);
    if (const auto* box = std::get_if<DrawnBox>(&item)) inside(box->From), inside(box->To);
    if (const auto* circle = std::get_if<DrawnCircle>(&item)) inside(circle->Centre);
    if (const auto* text = std::get_if<DrawnText>(&item)) inside(text->At);
  }
}

std::string Command(const std::vector<std::string>& arguments, int expected) {
  std::ostringstream out;
  std::ostringstream err;
  EXPECT_EQ(RunReview(arguments, out, err), expected) << err.str();
  return out.str() + err.str();
}

}  // namespace

TEST(Pictures, MarkFlaggedAndMissingSamplesByShape) {
  StationSample skipped = SampleAt("60", "-99.000", "-99.00", "****");
  skipped.Rb = "-99.000";
  const Station station =
      StationWith({SampleAt("5", "1.500", "1.80", ""), SampleAt("40", "2.500", "2.20", "***"), skipped,
                   SampleAt("150", "0.100", "9.99", "****")});
  const Picture profile = ProfilePicture({&station});
  int crosses = 0;
  std::string ringed;
  for (const Mark& mark : profile.Marks) {
    crosses += mark.Shape == Shape::Cross ? 1 : 0;
    if (mark.Ringed) ringed += mark.Label + " ";
  }
  EXPECT_EQ(crosses, 1);
  EXPECT_EQ(ringed, "*** **** ");
  EXPECT_GT(profile.Y.From, profile.Y.To) << "depth runs down";
  ASSERT_EQ(profile.Lines.size(), 2U);
  EXPECT_EQ(profile.Lines[1].Points.size(), 3U) << "the skipped sample breaks no line";
  const Picture ratio = RatioPicture({&station});
  EXPECT_FALSE(ratio.Bands.empty());
  // The band of 81 to 120 m leaves 1.5 to 2.0 free; deeper, "*" begins above 1.6.
  for (const Band& band : ratio.Bands) {
    EXPECT_FALSE(band.From.Y == 80 && band.From.X < 1.9 && band.To.X > 1.6);
    if (band.From.Y == 120 && band.From.X > 1.2 && band.Ink == Ink::Band1) {
      EXPECT_NEAR(band.From.X, 1.6, 0.011);
    }
  }
  for (const Picture& picture : {profile, ratio}) {
    ExpectOnSheet(picture);
    const std::string svg = SvgFile(picture);
    EXPECT_NE(svg.find("&lt;93.3 &amp; 70&gt;"), std::string::npos);
    EXPECT_EQ(svg.find("var("), std::string::npos) << "a file of its own holds its colours";
  }
}

TEST(Pictures, StandOnAnyNumbers) {
  const Station none = StationWith({});
  const Station noDepths = StationWith({SampleAt("3", "1.0", "1.7", ""), SampleAt("3", "2.0", "1.7", "")});
  const Station wild =
      StationWith({SampleAt("0", "0", "0", ""), SampleAt("11000", "900000000", "1e8", "****"),
                   SampleAt("-5", "-3", "-2", "*")});
  std::vector<const Station*> many(30, &noDepths);
  for (const auto& stations :
       {std::vector<const Station*>{&none}, {&noDepths}, {&wild}, {&none, &wild}, many})
    for (const Picture& picture : {ProfilePicture(stations), RatioPicture(stations)}) {
      ExpectOnSheet(picture);
      EXPECT_EQ(SvgElement(picture).find("nan"), std::string::npos);
      EXPECT_EQ(SvgElement(picture).find("inf"), std::string::npos);
    }
  EXPECT_NE(ProfilePicture({&noDepths}).Y.Title.find("depths are missing"), std::string::npos);
  EXPECT_EQ(ProfilePicture(many).Note, "22 more are chosen and not shown.");
  for (const auto& [low, high] :
       {std::pair{0.0, 0.0}, {1.0, 1.0}, {-3.0, 1e9}, {0.0, 1e-7}, {5.03, 5.0301}}) {
    const Axis axis = NiceAxis("", low, high);
    EXPECT_TRUE(axis.From <= low && axis.To >= high && axis.Ticks.size() >= 2 && axis.Ticks.size() < 15)
        << high;
    for (const AxisTick& tick : axis.Ticks)
      EXPECT_EQ(tick.Text.find_first_not_of("-0123456789."), std::string::npos);
  }
  ControlChart chart{"Blank", {"001"}, {{"001", false, 0, 0.005, ""}}, 0.005};
  ExpectOnSheet(ChartPicture(chart));
}

TEST(ReviewCommand, WritesOnePageThatNeedsNothingElseAndTheFinalData) {
  const TempFolder folder;
  for (const GeneratedStation& station : GenerateCruise(60))
    folder.Write("chl" + station.ProcNum, station.Text());
  folder.Write("chl061", "half\r\n");
  const std::string in = folder.Path.string();
  const auto start = std::chrono::steady_clock::now();
  const std::string said = Command({in, "--html", in + "/r.html", "--csv=" + in + "/0707SLfinal.csv",
                                    "--post-f", "0.0100", "--post-tau", "2.05", "--drives", in + "/d"},
                                   0);
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(3));
  EXPECT_NE(said.find("left out: chl061: has 1 lines"), std::string::npos) << said;
  const std::string page = folder.Read("r.html");
  std::size_t pictures = 0;
  for (auto at = page.find("<svg"); at != std::string::npos; at = page.find("<svg", at + 1)) ++pictures;
  EXPECT_EQ(pictures, 3U + 2 * 60);
  for (const char* never : {"<script", "http://", "https://", "url(", "@import", "src="})
    EXPECT_EQ(Replaced(page, "xmlns=\"http://www.w3.org/2000/svg\"", "").find(never), std::string::npos)
        << never;
  EXPECT_NE(page.find("chl061"), std::string::npos);
  EXPECT_EQ(Lines(folder.Read("0707SLfinal.csv")).size(), 721U);
  EXPECT_NE(folder.Read("0707SLfinal.txt").find("chl061: has 1 lines"), std::string::npos);

  const std::string table = Command({in, "--station", "7", "--station=012", "--drives", in + "/d"}, 0);
  EXPECT_NE(table.find("\n 007     01"), std::string::npos) << table;
  EXPECT_NE(table.find("\n 012     12"), std::string::npos);
  EXPECT_EQ(table.find("\n 008 "), std::string::npos);
  // A page that can't be written leaves the old one.
  Command({in, "--html", in + "/nowhere/r.html"}, 2);
  EXPECT_EQ(folder.Read("r.html"), page);
}

TEST(ReviewCommand, NamesTheOptionThatIsWrong) {
  const TempFolder folder;
  const std::string in = folder.Path.string();
  struct Row {
    std::vector<std::string> arguments;
    int status;
    const char* words;
  };
  const Row rows[] = {{{}, 2, "wants a folder"},
                      {{in, in}, 2, "more than one folder"},
                      {{in, "--colour"}, 2, "--colour"},
                      {{in, "--html"}, 2, "--html wants a value"},
                      {{in, "--post-f", "0"}, 2, "F after the cruise"},
                      {{in, "--post-tau=1"}, 2, "tau after the cruise"},
                      {{in, "--post-f", "0,01"}, 2, "wants a number, not \"0,01\""},
                      {{in, "--station", "5"}, 2, "--station 5"},
                      {{in + "/none"}, 2, "is no folder"},
                      {{in, "--csv", in + "/final.dat"}, 2, "end in .csv"},
                      {{in}, 0, "holds no saved station"},
                      {{"--help"}, 0, "--post-tau T"}};
  for (const Row& row : rows)
    EXPECT_NE(Command(row.arguments, row.status).find(row.words), std::string::npos) << row.words;
}

}  // namespace kelp
