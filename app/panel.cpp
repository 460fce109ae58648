// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/panel.hpp"

#include "acquire/captions.hpp"
#include "acquire/save_check.hpp"
#include "app/alarms.hpp"
#include "core/config.hpp"
#include "core/numbers.hpp"
#include "core/start_button.hpp"
#include "core/text.hpp"
#include "workflow/record.hpp"

namespace kelp {

namespace {

int BoxOfItem(const Kelp& kelp, Item item) {
  switch (item) {
    case Item::Blank:
    case Item::LowStandard:
    case Item::HighStandard: return RecordBox(kelp, "0");
    case Item::Copro1: return RecordBox(kelp, "1");
    case Item::Copro2: return RecordBox(kelp, "2");
    default: return -1;
  }
}

}  // namespace

PanelState PanelOf(const Kelp& kelp) {
  const RunState& run = kelp.run;
  const FrmAcquire& form = kelp.frmAcquire;
  PanelState panel;
  panel.Criterion = SdText(CfgNumber(run, kCfgSdCriterion));
  panel.HasSd = !form.txtStats[2].Text.empty();
  // What stood before the line fell silent is no sign that a value may be saved now.
  panel.SdMet = panel.HasSd && SdIsMet(kelp) && ReadingAge(kelp) < 0;
  panel.MinReads = run.MinReads;
  panel.Station = std::string(Trim(form.txtStaInfo[kStaProcNum].Text)) + "  " +
                  std::string(Trim(form.txtStaInfo[kStaLineSta].Text));
  panel.Samples = run.SampCount > 0 ? int{run.SampCount} : 0;
  if (run.SampNum >= 1 && run.SampNum <= panel.Samples) panel.Sample = panel.Row = run.SampNum;
  const Item item = ButtonRow(kelp).What;
  if (panel.Row > 0 && item == Item::Rb) panel.Col = kColRb;
  if (panel.Row > 0 && item == Item::Ra) panel.Col = kColRa;
  panel.Box = BoxOfItem(kelp, item);
  return panel;
}

}  // namespace kelp
