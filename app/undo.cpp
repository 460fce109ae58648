#include "app/undo.hpp"

#include "acquire/averaging.hpp"
#include "core/text.hpp"
#include "record/record.hpp"

namespace kelp {

namespace {

// The readings of the item are gone: what was ready to be saved is to be read anew, and nothing is read
// before the operator has put the item back.
void ReadAgain(Kelp& kelp) {
  std::string& caption = kelp.frmAcquire.Command1.Caption;
  if (caption == "Save Rb" || caption == "Reading Rb" || caption == "Reading Station Sample")
    caption = "Load Station Sample";
  else if (caption == "Save Ra" || caption == "Acidified" || caption == "Reading Ra")
    caption = "Acidify";
  else if (Contains(caption, "Blank"))
    caption = "Load Blank";
  else if (StartsWith(caption, "Save ") || StartsWith(caption, "Reading "))
    caption =
        (Contains(caption, "Standard") ? "Load " : "Load Copro ") + caption.substr(caption.find(' ') + 1);
  kelp.run.ReadFlag = caption == "Acidify";
  kelp.run.RaAccepted = false;
  kelp.run.TraceColor = kTraceMagenta;
  kelp.run.Resume = ResumeAt::Nothing;
  kelp.loop.Running = false;
  ClearRawReads(kelp.run);
  kelp.run.ReadCount = 0;
  HideScreen(kelp, "frmWhatsNext");
  kelp.frmAcquire.Text4.Text = "Taken back. Load that item again, then press <spacebar> or click [" +
                               Replaced(caption, "&", "") + "].";
}

}  // namespace

void cmdUndo_Click(Kelp& kelp) {
  const std::string caption = kelp.frmAcquire.Command1.Caption;
  const std::string what = UndoLast(kelp);
  if (what.empty()) {
    SetStatus(kelp, "Nothing to take back.");
    return;
  }
  if (kelp.frmAcquire.Command1.Caption != caption) ReadAgain(kelp);
  kelp.Focus = {"frmAcquire", "Command1"};
  SetStatus(kelp, "Taken back: " + what + ".");
}

}  // namespace kelp
