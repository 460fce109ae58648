// The chooser and the notice during long saves.
#include <QBoxLayout>
#include <QFrame>
#include <QLabel>

#include "desktop/windows/forms.hpp"
#include "desktop/windows/look.hpp"

namespace kelp {

std::unique_ptr<ScreenWindow> MakeFrmWhatsNext(Kelp& kelp, const Report& report) {
  auto window = std::make_unique<ScreenWindow>(kelp, "frmWhatsNext", kelp.frmWhatsNext.Form, report);
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

  auto* reminder = static_cast<QLabel*>(controls("Label1"));
  SetLook(reminder, 1, true);
  SetInk(reminder, WarnInk);

  auto* layout = new QVBoxLayout(window.get());
  layout->setContentsMargins(18, 16, 18, 14);
  layout->setSpacing(16);
  layout->addLayout(choices);
  layout->addWidget(reminder);
  layout->addLayout(MakeButtonRow({controls("NextButton"), controls("StopButton")}));
  return window;
}

std::unique_ptr<ScreenWindow> MakeFrmProgress(Kelp& kelp, const Report& report) {
  auto window = std::make_unique<ScreenWindow>(kelp, "frmProgress", kelp.frmProgress.Form, report);
  window->Controls.Bind(kelp.frmProgress);
  auto* label = static_cast<QLabel*>(window->Controls("Label1"));
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
