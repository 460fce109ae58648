// SPDX-License-Identifier: GPL-3.0-or-later
// The create screen and the dialogs that steer a run.
#include <QBoxLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>

#include "desktop/windows/access_keys.hpp"
#include "desktop/windows/forms.hpp"
#include "desktop/windows/look.hpp"
#include "desktop/windows/wrap_text.hpp"

namespace kelp {

namespace {

QVBoxLayout* MakeMargins(ScreenWindow& window) {
  auto* layout = new QVBoxLayout(&window);
  layout->setContentsMargins(18, 16, 18, 14);
  layout->setSpacing(14);
  return layout;
}

// The create screen that says in words, below its boxes, what is marked in them.
class CreateWindow : public ScreenWindow {
 public:
  CreateWindow(Kelp& kelp, const Report& report)
      : ScreenWindow(kelp, "frmCreateBase", kelp.frmCreateBase.Form, report),
        Remarks(new WrapText(this)),
        form_(kelp.frmCreateBase) {
    Remarks->SetColor(WarnInk);
    Remarks->setAccessibleName("What is marked");
    SetLook(Remarks, 1, true);
  }
  void ShowChanges() override {
    ScreenWindow::ShowChanges();
    QStringList lines;
    for (int i = 0; i < form_.Text1.kCount; ++i)
      if (const TextBox& box = form_.Text1[i]; !box.Problem.empty())
        lines << FromProgram(form_.Label1[i].Caption).trimmed() + " " + FromProgram(box.Problem);
    // The room is there before the first remark: nothing moves when one comes or goes.
    while (lines.size() < 3) lines << " ";
    if (const QString text = lines.join('\n'); text != Remarks->ShownText()) {
      Remarks->resize(layout()->sizeHint().width(), Remarks->height());
      Remarks->ShowText(text);
    }
  }
  WrapText* const Remarks;

 private:
  const FrmCreateBase& form_;
};

}  // namespace

std::unique_ptr<ScreenWindow> MakeFrmCreateBase(Kelp& kelp, const Report& report) {
  auto window = std::make_unique<CreateWindow>(kelp, report);
  Binder& controls = window->Controls;
  controls.Bind(kelp.frmCreateBase);
  auto* fields = new QGridLayout;
  fields->setHorizontalSpacing(12);
  fields->setVerticalSpacing(8);
  for (int i = 0; i < kelp.frmCreateBase.Text1.kCount; ++i) {
    AddField(fields, i, 0, controls, "Label1", i, "Text1", i);
    controls("Text1", i)->setMinimumWidth(DigitsWidth(*window, 18));
  }
  SetAccessKeys(controls, {{"cmdCreateBase", 0, 'C'}, {"cmdCreateBase", 2, 'Q'}});
  QBoxLayout* buttons = MakeButtonRow({controls("cmdCreateBase", 0), controls("cmdCreateBase", 2)});
  // Button 1 is no part of the screen as the operator sees it.
  buttons->addWidget(controls("cmdCreateBase", 1));
  QVBoxLayout* layout = MakeMargins(*window);
  layout->addLayout(fields);
  layout->addWidget(window->Remarks);
  layout->addStretch();
  layout->addLayout(buttons);
  return window;
}

std::unique_ptr<ScreenWindow> MakeFrmChangeStep(Kelp& kelp, const Report& report) {
  auto window = std::make_unique<ScreenWindow>(kelp, "frmChangeStep", kelp.frmChangeStep.Form, report);
  Binder& controls = window->Controls;
  controls.Bind(kelp.frmChangeStep);
  QVBoxLayout* layout = MakeMargins(*window);
  auto* options = new QVBoxLayout;
  options->setSpacing(6);
  for (int i = 0; i < kelp.frmChangeStep.Option1.kCount; ++i) options->addWidget(controls("Option1", i));
  layout->addLayout(options);
  auto* sample = new QGridLayout;
  AddField(sample, 0, 0, controls, "Label1", -1, "Text1", -1);
  controls("Text1")->setMaximumWidth(DigitsWidth(*window, 8));
  sample->setColumnStretch(2, 1);
  layout->addLayout(sample);
  layout->addStretch();
  SetAccessKeys(controls, {{"Command1", 0, 'R'}, {"Command1", 1, 'C'}});
  layout->addLayout(MakeButtonRow({controls("Command1", 0), controls("Command1", 1)}));
  return window;
}

std::unique_ptr<ScreenWindow> MakeDlgRunRem(Kelp& kelp, const Report& report) {
  auto window = std::make_unique<ScreenWindow>(kelp, "dlgRunRem", kelp.dlgRunRem.Form, report);
  Binder& controls = window->Controls;
  auto* sample = controls.Use("Frame2", -1, new QGroupBox(window.get()));
  auto* source = controls.Use("Frame1", -1, new QGroupBox(window.get()));
  controls.Bind(kelp.dlgRunRem);
  const auto fill = [&](QGroupBox* group, int first, int second) {
    auto* column = new QVBoxLayout(group);
    column->addWidget(controls("Option1", first));
    column->addWidget(controls("Option1", second));
  };
  fill(sample, 2, 3);
  fill(source, 1, 0);
  SetAccessKeys(controls, {{"OKButton", -1, 'O'},
                           {"CancelButton", -1, 'C'},
                           {"Option1", 2, 'L'},
                           {"Option1", 3, 'N'},
                           {"Option1", 1, 'R'},
                           {"Option1", 0, 'F'},
                           {"Label1", -1, 'E'}});
  auto* groups = new QHBoxLayout;
  groups->addWidget(sample);
  groups->addWidget(source);
  controls.Pair("Label1", -1, "Text1", -1);
  controls("Text1")->setMinimumWidth(DigitsWidth(*window, 44));
  SetTabChain({controls("Text1"), controls("Option1", 2), controls("Option1", 3), controls("Option1", 1),
               controls("Option1", 0), controls("OKButton"), controls("CancelButton")});
  QVBoxLayout* layout = MakeMargins(*window);
  layout->addLayout(groups);
  auto* remark = new QVBoxLayout;
  remark->setSpacing(4);
  remark->addWidget(controls("Label1"));
  remark->addWidget(controls("Text1"));
  layout->addLayout(remark);
  layout->addStretch();
  layout->addLayout(MakeButtonRow({controls("OKButton"), controls("CancelButton")}));
  return window;
}

std::unique_ptr<ScreenWindow> MakeFrmRecalc(Kelp& kelp, const Report& report) {
  auto window = std::make_unique<ScreenWindow>(kelp, "frmRecalc", kelp.frmRecalc.Form, report);
  Binder& controls = window->Controls;
  controls.Bind(kelp.frmRecalc);
  auto* explanation = controls.As<QLabel>("Label2");
  explanation->setWordWrap(true);
  explanation->setMinimumWidth(DigitsWidth(*window, 52));
  auto* fields = new QGridLayout;
  fields->setVerticalSpacing(8);
  for (int i = 0; i < kelp.frmRecalc.Text1.kCount; ++i) {
    AddField(fields, i, 0, controls, "Label1", i, "Text1", i);
    controls("Text1", i)->setMaximumWidth(DigitsWidth(*window, 14));
  }
  fields->setColumnStretch(2, 1);
  SetAccessKeys(controls, {{"Command1", 0, 'R'}, {"Command1", 1, 'L'}, {"Command1", 2, 'C'}});
  QVBoxLayout* layout = MakeMargins(*window);
  layout->addWidget(explanation);
  layout->addLayout(fields);
  layout->addStretch();
  layout->addLayout(
      MakeButtonRow({controls("Command1", 0), controls("Command1", 1), controls("Command1", 2)}));
  return window;
}

}  // namespace kelp
