// SPDX-License-Identifier: GPL-3.0-or-later
// Looks after a run, event by event: no value gets into a wrong cell, and nothing is silent.
#pragma once

#include <string>

#include "app/door.hpp"
#include "app/focus.hpp"
#include "core/config.hpp"
#include "core/numbers.hpp"
#include "tests/support/invariants.hpp"

namespace kelp {

/// All that the screens show, as one text.
inline std::string Shown(Kelp& kelp) {
  std::string all;
  const auto add = [&](std::string_view /*name*/, int /*index*/, const auto& control) {
    if constexpr (requires { control.Caption; }) all += control.Caption + (control.Enabled ? "|" : "-");
    if constexpr (requires { control.Text; }) {
      if constexpr (requires { control.Cells; })
        for (const Grid::Cell& cell : control.Cells) all += cell.Text + "|";
      else
        all += control.Text + "|";
    }
    if constexpr (requires { control.Value; }) all += control.Value ? "1" : "0";
  };
  VisitScreens(kelp, [&](std::string_view name, auto& screen) {
    all += std::string(name) + (screen.Form.Visible ? "+" : "-");
    VisitEach(screen, add);
  });
  for (const std::string& screen : kelp.Shown) all += screen + ">";
  return all;
}

class SlipWatch {
 public:
  /// Call it before an event or a pass. A pass with a reading is told by `reads`.
  void Before(Kelp& kelp, const Event* event, bool reads) {
    if (kelp_ != &kelp || starts_ != kelp.run.StationLoads) values_ = Values::Of(kelp);
    kelp_ = &kelp;
    starts_ = kelp.run.StationLoads;
    event_ = event;
    caption_ = kelp.frmAcquire.Command1.Caption;
    sample_ = kelp.run.SampNum;
    loads_ = kelp.run.StationLoads;
    wasReopened_ = kelp.run.Reopened;
    isLoaded_ = kelp.run.Loaded;
    readsNow_ = reads;
    ended_ = kelp.Ended;
    replaceYes = false;
    asked = false;
    shown_.clear();
    if (IsButtonClick()) {
      kelp.Status.clear();
      shown_ = kelp::Shown(kelp);
    }
  }

  /// What is wrong after it, or "".
  std::string After() {
    const Kelp& kelp = *kelp_;
    if (kelp.Ended || ended_) return "";
    // A pass that leaves the button alone has stored nothing.
    const bool looks = event_ != nullptr || kelp.frmAcquire.Command1.Caption != caption_;
    if (readsNow_) ++reads_;
    if (!looks && kelp.run.StationLoads == loads_) return "";
    const std::string disagreement = kelp.frmAcquire.Form.Loaded ? Disagreement(kelp) : "";
    if (!disagreement.empty()) return disagreement;
    if (!shown_.empty() && !asked && kelp.Status.empty() && shown_ == kelp::Shown(*kelp_))
      return "a click on " + event_->Place.Screen + "." + event_->Place.Control + "(" +
             std::to_string(event_->Place.Index) + ") did and said nothing at [" + caption_ + "]";
    if (kelp.run.StationLoads != loads_ || kelp.run.CsvFile.empty()) {
      const std::string left = LeftOver();
      if (!left.empty()) return left;
      went_ = loaded_ = 0;
      values_ = Values::Of(kelp);
      return "";
    }
    WatchWay();
    const std::string wrong = WrongValue();
    WatchLoad();
    return wrong;
  }

  bool replaceYes = false;  ///< "Replace a reading?" was answered with Yes
  bool asked = false;       ///< a box came up

 private:
  [[nodiscard]] bool Clicked(const char* control) const {
    return event_ != nullptr && event_->Kind == EventKind::Click && event_->Place.Control == control;
  }
  [[nodiscard]] bool IsKey(int number) const {
    return event_ != nullptr && event_->Kind == EventKind::Key && event_->Key == kKeyF1 + number - 1;
  }
  bool IsButtonClick() {
    if (event_ == nullptr || event_->Kind != EventKind::Click) return false;
    const Window* window = FindWindow(*kelp_, event_->Place.Screen);
    const ControlRef control = ControlAt(*kelp_, event_->Place);
    const auto* const* button = std::get_if<Button*>(&control);
    // These start a dialog of the machine, which no control shows.
    const bool machine = event_->Place.Control == "PrinterSelect" || event_->Place.Screen == "frmMain";
    return button != nullptr && window->Visible && !machine && (*button)->Enabled && (*button)->Visible;
  }

  // What a caption is about, as a number: a sample's own, or a negative one for blank, standard or copro.
  static int About(const Kelp& kelp, const std::string& caption, int sample) {
    const Item item = CaptionOf(kelp.run, caption).What;
    if (item == Item::Rb || item == Item::Ra) return sample;
    return -static_cast<int>(item);
  }

  // What a station brought in its own report, and the next new one still has.
  [[nodiscard]] std::string LeftOver() const {
    const RunState& run = kelp_->run;
    const FrmAcquire& form = kelp_->frmAcquire;
    if (!wasReopened_ || run.Reopened || run.CsvFile.empty() || run.Resume != ResumeAt::Nothing) return "";
    if (form.txtStaInfo[kStaF].Text != CfgValue(run, kCfgMachineFactor)) return "F of the station before";
    if (form.txtStaInfo[kStaTau].Text != CfgValue(run, kCfgAcidRatio)) return "tau of the station before";
    return form.Combo1.Text != run.LoginInitials ? "analyst of the station before" : "";
  }

  // The sample that the operator went back to.
  void WatchWay() {
    const Kelp& kelp = *kelp_;
    const std::string& caption = kelp.frmAcquire.Command1.Caption;
    const bool dblClick = event_ != nullptr && event_->Kind == EventKind::DblClick &&
                          event_->Place.Control == "datalog" && asked;
    const bool step = Clicked("Command1") && event_->Place.Screen == "frmChangeStep";
    if (dblClick || step || Clicked("Command4") || replaceYes)
      went_ = replaceYes ? sample_ : int{kelp.run.SampNum};
    const bool done = caption != caption_ && (caption == "Load Next Sample" || caption == "What's Next");
    if (done && !dblClick && !step && !replaceYes) next_ = true;
  }

  // An Rb or Ra that became another one untold, or went into a cell that was not loaded.
  std::string WrongCell(Values& now) {
    const bool typed =
        event_ != nullptr && (event_->Kind == EventKind::Edit || event_->Kind == EventKind::Key);
    const bool told = typed || IsKey(5) || IsKey(7) || Clicked("txtMean") || Clicked("cmdUndo") || replaceYes;
    std::string wrong;
    for (int row = 1; row <= Values::kRows; ++row)
      for (const int col : {kColRb, kColRa}) {
        const std::string& before = values_.cell(row, col);
        if (before == now.cell(row, col)) continue;
        const std::string name =
            (col == kColRb ? "Rb" : "Ra") + std::string(" of sample ") + std::to_string(row);
        const bool read = !Trim(before).empty() && Val(before) > -99;
        if (read && !told && row != went_) wrong = name + " " + before + " became " + now.cell(row, col);
        if (Saved() && loaded_ != row) wrong = name + " was saved and never loaded";
      }
    return wrong;
  }

  std::string WrongValue() {
    const Kelp& kelp = *kelp_;
    Values now = Values::Of(kelp);
    std::string wrong = WrongCell(now);
    for (int box = 0; box < 10; ++box)
      if (values_.boxes[static_cast<std::size_t>(box)] != now.boxes[static_cast<std::size_t>(box)] &&
          Saved() && loaded_ != About(kelp, caption_, sample_))
        wrong = "box " + std::to_string(box) + " was saved and never loaded";
    if (Saved() && values_ != now && wrong.empty() && reads_ < std::max(1, int{kelp.run.ReadsToAverage}))
      wrong = "a value was saved after " + std::to_string(reads_) + " reads";
    if (next_) went_ = 0;
    next_ = false;
    values_ = now;
    return wrong.empty() ? "" : wrong + " at [" + caption_ + "], loaded " + std::to_string(loaded_);
  }

  // By hand or by Autoread; keys, mean boxes and typing say themselves where a value comes from.
  [[nodiscard]] bool Saved() const {
    return kelp_->Note.Way == How::Autoread || kelp_->Note.Way == How::Hand;
  }

  // The reads of an item begin with its own caption, and it is loaded by a click that begins to read it.
  void WatchLoad() {
    const Kelp& kelp = *kelp_;
    const std::string& caption = kelp.frmAcquire.Command1.Caption;
    const Phase does = CaptionOf(kelp.run, caption).Does;
    const Phase did = CaptionOf(kelp.run, caption_).Does;
    const bool begins = does == Phase::Read && (caption != caption_ || (event_ != nullptr && !isLoaded_));
    if (begins) reads_ = 0;
    if (does == Phase::Load) loaded_ = 0;
    const bool back = Clicked("Command4") && event_->Place.Screen == "frmAcquire";
    const bool begun =
        (begins || did == Phase::Save) && does == Phase::Read && event_ != nullptr && !back && !IsKey(3);
    if (begun && kelp.run.Loaded) loaded_ = About(kelp, caption, kelp.run.SampNum);
  }

  Kelp* kelp_ = nullptr;
  const Event* event_ = nullptr;
  Values values_ = {};
  std::string caption_ = {};
  std::string shown_ = {};
  int sample_ = 0;
  int loads_ = 0;
  int starts_ = -1;
  int loaded_ = 0;  ///< what the last Load click was about
  int reads_ = 0;   ///< readings since its caption came up
  int went_ = 0;
  bool next_ = false;
  bool wasReopened_ = false;
  bool isLoaded_ = false;
  bool readsNow_ = false;
  bool ended_ = false;
};

}  // namespace kelp
