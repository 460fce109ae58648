// SPDX-License-Identifier: GPL-3.0-or-later
// The chooser and the notice during long saves.
#include <QBoxLayout>
#include <QFrame>
#include <QLabel>

#include "app/glance.hpp"
#include "desktop/windows/access_keys.hpp"
#include "desktop/windows/accessible.hpp"
#include "desktop/windows/forms.hpp"
#include "desktop/windows/look.hpp"
#include "desktop/windows/wrap_text.hpp"

namespace kelp {

namespace {

constexpr int kMargin = 18;

// The chooser, with the samples that were not read: that is seen before the station is closed, or not at all.
class ChooserWindow : public ScreenWindow {
 public:
  ChooserWindow(Kelp& kelp, const Report& report)
      : ScreenWindow(kelp, "frmWhatsNext", kelp.frmWhatsNext.Form, report),
        Unread(new WrapText(this)),
        kelp_(kelp) {
    Unread->setAccessibleName("Samples without a reading");
    Unread->SetColor(WarnInk);
    SetLook(Unread, 1.4, true);
    Unread->hide();
  }
  void ShowChanges() override {
    ScreenWindow::ShowChanges();
    const QString text = FromProgram(UnreadSamples(kelp_));
    if (text == Unread->ShownText()) return;
    Unread->resize(layout()->sizeHint().width() - 2 * kMargin, Unread->height());
    Unread->ShowText(text);
    Unread->setVisible(!text.isEmpty());
    Announce(Unread);
  }
  WrapText* const Unread;

 private:
  const Kelp& kelp_;
};

}  // namespace

std::unique_ptr<ScreenWindow> MakeFrmWhatsNext(Kelp& kelp, const Report& report) {
  auto window = std::make_unique<ChooserWindow>(kelp, report);
  Binder& controls = window->Controls;
  controls.Bind(kelp.frmWhatsNext);

  auto* options = new QVBoxLayout;
  options->setSpacing(8);
  for (int i = 0; i < kelp.frmWhatsNext.Option1.kCount; ++i) {
    SetLook(controls("Option1", i), 1.1);
    options->addWidget(controls("Option1", i));
  }
  options->addStretch();

  auto* printing = new QVBoxLayout;
  printing->setSpacing(8);
  for (int i = 0; i < kelp.frmWhatsNext.Check2.kCount; ++i) printing->addWidget(controls("Check2", i));
  printing->addWidget(controls("PrinterSelect"));
  printing->addStretch();

  auto* choices = new QHBoxLayout;
  choices->setSpacing(40);
  choices->addLayout(options);
  choices->addLayout(printing);

  SetAccessKeys(controls, {{"Option1", 5, 'R'},
                           {"Option1", 6, 'Q'},
                           {"Check2", 0, 'I'},
                           {"Check2", 1, 'F'},
                           {"NextButton", -1, 'O'},
                           {"StopButton", -1, 'L'}});
  std::vector<QWidget*> chain;
  chain.reserve(kelp.frmWhatsNext.Option1.kCount + kelp.frmWhatsNext.Check2.kCount + 3);
  for (int i = 0; i < kelp.frmWhatsNext.Option1.kCount; ++i) chain.push_back(controls("Option1", i));
  for (const char* button : {"NextButton", "StopButton"}) chain.push_back(controls(button));
  for (int i = 0; i < kelp.frmWhatsNext.Check2.kCount; ++i) chain.push_back(controls("Check2", i));
  chain.push_back(controls("PrinterSelect"));
  SetTabChain(chain);

  auto* reminder = controls.As<QLabel>("Label1");
  SetLook(reminder, 1, true);
  SetInk(reminder, WarnInk);

  auto* layout = new QVBoxLayout(window.get());
  layout->setContentsMargins(kMargin, 16, kMargin, 14);
  layout->setSpacing(12);
  layout->addWidget(window->Unread);
  layout->addLayout(choices);
  layout->addWidget(reminder);
  layout->addLayout(MakeButtonRow({controls("NextButton"), controls("StopButton")}));
  return window;
}

std::unique_ptr<ScreenWindow> MakeFrmProgress(Kelp& kelp, const Report& report) {
  auto window = std::make_unique<ScreenWindow>(kelp, "frmProgress", kelp.frmProgress.Form, report);
  window->Controls.Bind(kelp.frmProgress);
  auto* label = window->Controls.As<QLabel>("Label1");
  SetLook(label, 1.15);
  label->setAlignment(Qt::AlignCenter);
  // The text changes while the window is up; the window keeps its size.
  label->setMinimumWidth(label->sizeHint().width());
  auto* layout = new QVBoxLayout(window.get());
  layout->setContentsMargins(32, 28, 32, 28);
  layout->addWidget(label);
  return window;
}

}  // namespace kelp
