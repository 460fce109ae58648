// SPDX-License-Identifier: GPL-3.0-or-later
// A random operator: whatever is clicked, typed, answered and read, nothing crashes, every run-time error
// is reported, every accepted Rb and Ra is in the station's log files, button, step, selector, trace and
// instruction agree, and no value gets into a wrong cell. One seed and 7,000 events, the same each time; set
// KELP_RANDOM_SEED and KELP_RANDOM_EVENTS to look for more.
#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <random>
#include <set>

#include "record/database.hpp"
#include "record/record.hpp"
#include "stage/program.hpp"
#include "tests/support/slip_watch.hpp"

namespace kelp {

namespace {

using Random = std::mt19937_64;

int Pick(Random& random, int count) { return static_cast<int>(random() % static_cast<std::uint64_t>(count)); }

// Answers every question by chance.
class RandomPlatform : public ScriptedPlatform {
 public:
  RandomPlatform(Disk& disk, Random& random) : ScriptedPlatform(disk), random_(random) {}

  Answer Ask(const Message& message) override {
    Answer answer;
    do answer = static_cast<Answer>(Pick(random_, 4));
    while (!Offers(message.Buttons, answer));
    if (Contains(message.Text, "unexpected: ")) Unexpected = message.Text;
    Watch->asked = true;
    if (message.Title == "Replace a reading?" && answer == Answer::Yes) Watch->replaceYes = true;
    QueueAnswer(answer);
    const Answer given = ScriptedPlatform::Ask(message);
    Boxes.clear();
    return given;
  }
  std::optional<std::string> AskFile(const FileQuestion& /*question*/) override {
    static constexpr const char* kNames[] = {"Q:\\vault\\2007\\0707\\chl\\chl003", "c:\\kelp\\kelp.cfg",
                                             "c:\\no", "x"};
    return Pick(random_, 2) == 0 ? std::nullopt : std::optional<std::string>(kNames[Pick(random_, 4)]);
  }

  std::string Unexpected;
  SlipWatch* Watch = nullptr;

 private:
  Random& random_;
};

class Operator {
 public:
  explicit Operator(std::uint64_t seed) : random_(seed) { Restart(); }

  void Act() {
    if (kelp_->Ended) Restart();
    Kelp& kelp = *kelp_;
    const std::string caption = kelp.frmAcquire.Command1.Caption;
    const int sample = kelp.run.SampNum;
    const std::string csv = kelp.run.CsvFile;
    const int loads = kelp.run.StationLoads;
    const int kind = Pick(random_, 100);
    if (kind < 55)
      Read();
    else if (kind < 70)
      Next();
    else if (kind < 80)
      Slip();
    else
      Meddle();
    Check(caption, sample, csv, loads);
  }

 private:
  void Restart() {
    platform_ = std::make_unique<RandomPlatform>(disk_, random_);
    platform_->Watch = &watch_;
    kelp_ = std::make_unique<Kelp>(*platform_);
    using namespace std::chrono;
    platform_->SetClock(local_days{year{2026} / 11 / 24} + hours{3} + seconds{restarts_++ * 1000});
    level_ = 0.005;
    Start(*kelp_);
  }

  // Mostly steady readings at the level that the step waits for.
  void Read() {
    const std::string& caption = kelp_->frmAcquire.Command1.Caption;
    if (Pick(random_, 12) == 0) level_ = std::pow(10, Pick(random_, 500) / 100.0 - 3);
    if (Contains(caption, "3-1")) level_ = 1.53;
    if (Contains(caption, "2-5")) level_ = 5.03;
    if (Contains(caption, "Blank")) level_ = 0.005;
    if (Contains(caption, "Acid")) level_ *= 0.7;
    const int count = 1 + Pick(random_, 12);
    for (int i = 0; i < count; ++i) {
      const double noise = (Pick(random_, 9) - 4) * 0.00002;
      platform_->Feed("\r\nA =" + Padded(Fixed(level_ + noise, 5), 7, "L", "S") + " (RAW)");
      platform_->Advance(1000);
      watch_.Before(*kelp_, nullptr, WantsPasses(*kelp_));
      Pass(*kelp_);
      ASSERT_EQ(watch_.After(), "");
    }
    Tick(*kelp_);
  }

  void Do(const Event& event) {
    watch_.Before(*kelp_, &event, false);
    Post(*kelp_, event);
    ASSERT_EQ(watch_.After(), "") << event.Place.Screen << "." << event.Place.Control << " key " << event.Key;
  }
  void Do(EventKind kind, const char* screen, const char* control, int index, const std::string& text = "") {
    Do({.Kind = kind, .Place = {screen, control, index}, .Text = text});
  }

  // What an operator who wants to get on would do.
  void Next() {
    if (kelp_->frmCreateBase.Form.Visible) {
      Do(EventKind::Edit, "frmCreateBase", "Text1", 2, std::to_string(1 + Pick(random_, 12)));
      Do(EventKind::Click, "frmCreateBase", "cmdCreateBase", 0);
    } else if (kelp_->frmLogin.Form.Visible) {
      Do(EventKind::Click, "frmLogin", "cmdOK", -1);
    } else if (kelp_->frmMain.Form.Visible) {
      Do(EventKind::Click, "frmMain", "Command1", 0);
    } else if (kelp_->frmWhatsNext.Form.Visible && Pick(random_, 2) == 0) {
      Do(EventKind::DblClick, "frmWhatsNext", "Option1", Pick(random_, 6));
    } else {
      Do(EventKind::Click, "frmAcquire", kelp_->frmAcquire.Check1.Value ? "Command1" : "Check1", -1);
    }
  }

  // The honest slips of a night watch.
  void Slip() {
    const int samples = std::max(1, int{kelp_->run.SampCount});
    switch (Pick(random_, 9)) {
      case 0:
      case 1:
        Do({.Kind = EventKind::DblClick,
            .Place = {"frmAcquire", "datalog"},
            .Row = 1 + Pick(random_, samples),
            .Col = 2 + Pick(random_, 3)});
        break;
      case 2: Do(EventKind::Click, "frmAcquire", "Command4", -1); break;
      case 3: Do(EventKind::Click, "frmAcquire", "Command5", -1); break;
      case 4: Do(EventKind::Click, "frmAcquire", "Option1", Pick(random_, 4)); break;
      case 5:
        Do({.Kind = EventKind::Key, .Place = {"frmAcquire"}, .Key = kKeyF1 + 3});
        Do(EventKind::Click, "frmChangeStep", "Option1", Pick(random_, 8));
        Do(EventKind::Click, "frmChangeStep", "Command1", 0);
        break;
      case 6:
        Do({.Kind = EventKind::Key, .Place = {"frmAcquire"}, .Key = kKeyF1 + 1 + Pick(random_, 8)});
        break;
      case 7:
        // A number that was typed may be that of a station saved before, and F that of another instrument.
        Do(EventKind::Click, "frmAcquire", "Command6", -1);
        if (Pick(random_, 3) == 0) Do(EventKind::Edit, "frmAcquire", "txtStaInfo", kStaF, "0.5");
        if (Pick(random_, 2) == 0)
          Do(EventKind::Edit, "frmAcquire", "txtStaInfo", kStaProcNum, std::to_string(1 + Pick(random_, 12)));
        Do(EventKind::DblClick, "frmWhatsNext", "Option1", 0);
        break;
      default: Do(EventKind::DblClick, "frmWhatsNext", "Option1", 2 + Pick(random_, 3)); break;
    }
  }

  void Meddle() {
    if (kelp_->Shown.empty()) return;
    const std::string front = kelp_->Shown[random_() % kelp_->Shown.size()];
    std::vector<FocusPlace> reach;  // all its controls
    VisitScreens(*kelp_, [&](std::string_view name, auto& screen) {
      const auto add = [&](auto control, int index, auto&) {
        reach.push_back({front, std::string(control), index});
      };
      if (name == front) VisitEach(screen, add);
    });
    const FocusPlace place = reach[random_() % reach.size()];
    static constexpr EventKind kKinds[] = {EventKind::Click, EventKind::Click,     EventKind::DblClick,
                                           EventKind::Key,   EventKind::Key,       EventKind::Edit,
                                           EventKind::Focus, EventKind::SelectCell};
    Event event{.Kind = kKinds[Pick(random_, 8)], .Place = place, .Text = RandomText(), .Key = RandomKey()};
    event.Row = Pick(random_, 20);
    event.Col = Pick(random_, 14);
    if (Pick(random_, 400) == 0) event.Kind = EventKind::Close;
    Do(event);
    const int mishap = Pick(random_, 60);
    if (mishap == 0) platform_->LineDown();
    if (mishap < 4) platform_->LineUp();
    platform_->SetPrinterWorks(mishap != 5);
    if (mishap == 6) platform_->Feed(RandomText() + "RAW)=");
    disk_.FailAt = mishap == 7 ? disk_.Writes + 1 + Pick(random_, 8) : 0;
  }

  int RandomKey() {
    static constexpr int kKeys[] = {kKeyBackspace, kKeyTab, kKeyEnter, kKeySpace, '0',
                                    '7',           '.',     'x',       '-',       255};
    return Pick(random_, 2) == 0 ? kKeyF1 + Pick(random_, 12) : kKeys[Pick(random_, 10)];
  }

  std::string RandomText() {
    static constexpr const char* kTexts[] = {
        "",   "7",   "2.288", "1e999",    "-1",        "32767", "99999", "a b_c,<\"\\",
        "12", "990", "LAB",   "\x01\xff", "..\\..\\x", "0.109", "100",   "11/24/2026"};
    return kTexts[Pick(random_, 16)];
  }

  // `caption` and the rest are as they were before the event.
  void Check(const std::string& caption, int sample, const std::string& csv, int loads) {
    const RunState& run = kelp_->run;
    ASSERT_EQ(platform_->Unexpected, "");
    ASSERT_GE(run.SampNum, 1);
    ASSERT_LE(run.SampNum, 101);
    const std::string& now = kelp_->frmAcquire.Command1.Caption;
    captions.insert(now);
    if (loads != run.StationLoads || kelp_->record.Unsafe) return;
    // A save that the event made: the caption has moved on and the grid has the value. A value equal to that
    // of a saved station stands in its base file already.
    const bool rb = caption == "Save Rb" && now == "Acidify";
    const bool ra = caption == "Save Ra" && (now == "Load Next Sample" || now == "What's Next");
    if (!rb && !ra) return;
    ++accepted;
    const std::string& value = kelp_->frmAcquire.datalog.Text(sample, rb ? kColRb : kColRa);
    const std::string line = "datalog(" + std::to_string(sample) + (rb ? ",3)" : ",4)");
    ASSERT_TRUE(RecordHas(line, value) || (rb ? Contains(disk_.Files[Lower(run.BaseFile)], " " + value + " ")
                                              : Contains(disk_.Files[Lower(csv)], "," + value + ",")))
        << line;
  }

  bool RecordHas(const std::string& place, const std::string& value) {
    Database record(disk_, kRecordPath, Opening::ToRead);
    const std::vector<Database::Run> runs =
        record.Runs(kelp_->run.PrnFile.substr(0, kelp_->run.PrnFile.size() - 4));
    if (runs.empty()) return false;
    for (const RecordedEvent& event : record.EventsOf(runs.back().Begun.Uid))
      for (const RecordedValue& stored : event.Values)
        if (stored.Place == place && stored.After == value) return true;
    return false;
  }

  Random random_;
  MemoryDisk disk_ = {};
  std::unique_ptr<RandomPlatform> platform_;
  std::unique_ptr<Kelp> kelp_;
  SlipWatch watch_ = {};
  double level_ = 0.005;
  int restarts_ = 0;

 public:
  int accepted = 0;
  std::set<std::string> captions = {};
};

}  // namespace

TEST(RandomOperator, LosesNothingAndBreaksNothing) {
  const char* seedText = std::getenv("KELP_RANDOM_SEED");
  const char* eventsText = std::getenv("KELP_RANDOM_EVENTS");
  const std::uint64_t seed = seedText != nullptr ? std::strtoull(seedText, nullptr, 10) : 3;
  const long events = eventsText != nullptr ? std::strtol(eventsText, nullptr, 10) : 7000;
  std::printf("random operator: KELP_RANDOM_SEED=%llu\n", static_cast<unsigned long long>(seed));
  Operator person(seed);
  long done = 0;
  while (done < events) {
    person.Act();
    ++done;
    ASSERT_FALSE(HasFailure()) << "event " << done << " of seed " << seed;
  }
  std::printf("%ld events, %d accepted readings, %zu captions\n", done, person.accepted,
              person.captions.size());
  EXPECT_GT(person.accepted, done / 2000);
}

}  // namespace kelp
