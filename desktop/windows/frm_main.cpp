// SPDX-License-Identifier: GPL-3.0-or-later
// The main window and the login.
#include <QBoxLayout>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QPushButton>

#include "desktop/windows/access_keys.hpp"
#include "desktop/windows/accessible.hpp"
#include "desktop/windows/forms.hpp"
#include "desktop/windows/look.hpp"
#include "desktop/windows/value_widget.hpp"

namespace kelp {

namespace {

// In the order of a day's work; the numbers are those of the buttons.
constexpr int kRunSamples = 0;
constexpr int kFileButtons[] = {2, 3};
constexpr int kConfigButtons[] = {1, 5};
constexpr int kQuit = 4;
constexpr int kLastTube = 4;

QGroupBox* MakeLastStation(const Binder& controls, QGroupBox* group) {
  auto* fields = new QGridLayout(group);
  for (int i = 0; i <= kLastTube; ++i) AddField(fields, i, 0, controls, "lblText1", i, "Text1", i);
  for (int i = 0; i < kLastTube; ++i) SetLook(controls("Text1", i), 1, true);
  fields->setContentsMargins(14, 12, 14, 12);
  fields->setVerticalSpacing(12);
  fields->setHorizontalSpacing(14);
  fields->setColumnStretch(1, 1);
  fields->setRowStretch(kLastTube + 1, 1);
  return group;
}

}  // namespace

std::unique_ptr<ScreenWindow> MakeFrmMain(Kelp& kelp, const Report& report, QPushButton* review,
                                          QPushButton* machineSettings) {
  auto window = std::make_unique<ScreenWindow>(kelp, "frmMain", kelp.frmMain.Form, report);
  Binder& controls = window->Controls;
  auto* group = controls.Use("Label1", -1, new QGroupBox(window.get()));
  // The last tube may be corrected: the next station's vials go on from it. The others only tell.
  for (int i = 0; i < kLastTube; ++i)
    controls.Use("Text1", i, new ValueBox(20, ValueBox::Frame::None, Qt::AlignLeft, window.get()));
  controls.Bind(kelp.frmMain);
  MakeLastStation(controls, group);

  auto* buttons = new QVBoxLayout;
  buttons->setSpacing(6);
  QWidget* run = controls("Command1", kRunSamples);
  SetLook(run, 1.35, true);
  run->setMinimumHeight(run->fontMetrics().height() * 3);
  buttons->addWidget(run);
  buttons->addSpacing(8);
  std::vector<QWidget*> chain = {run};
  const auto add = [&](QWidget* button) {
    button->setMinimumHeight(button->fontMetrics().height() * 2);
    buttons->addWidget(button);
    chain.push_back(button);
  };
  review->setParent(window.get());
  add(review);
  for (const int i : kFileButtons) add(controls("Command1", i));
  for (const int i : kConfigButtons) add(controls("Command1", i));
  machineSettings->setParent(window.get());
  add(machineSettings);
  buttons->addStretch();
  add(controls("Command1", kQuit));
  chain.push_back(controls("Text1", kLastTube));
  SetTabChain(chain);
  SetAccessKeys(controls, {{"Command1", 0, 'R'},
                           {"Command1", 1, 'E'},
                           {"Command1", 2, 'C'},
                           {"Command1", 3, 'B'},
                           {"Command1", 4, 'Q'},
                           {"Command1", 5, 'L'},
                           {"lblText1", kLastTube, 'T'}});

  auto* layout = new QHBoxLayout(window.get());
  layout->setContentsMargins(18, 18, 18, 18);
  layout->setSpacing(18);
  layout->addLayout(buttons, 1);
  layout->addWidget(group, 1);
  window->setMinimumWidth(DigitsWidth(*window, 84));
  return window;
}

std::unique_ptr<ScreenWindow> MakeFrmLogin(Kelp& kelp, const Report& report) {
  auto window = std::make_unique<ScreenWindow>(kelp, "frmLogin", kelp.frmLogin.Form, report);
  Binder& controls = window->Controls;
  controls.Bind(kelp.frmLogin);
  auto* field = new QGridLayout;
  AddField(field, 0, 0, controls, "lblLabels", -1, "Combo1", -1);
  controls("Combo1")->setMinimumWidth(DigitsWidth(*window, 20));
  NameBox(controls.As<QComboBox>("Combo1"), "Operator");
  SetAccessKeys(controls, {{"cmdOK", -1, 'K'}, {"cmdCancel", -1, 'Q'}});
  field->setColumnStretch(1, 1);
  auto* layout = new QVBoxLayout(window.get());
  layout->setContentsMargins(18, 18, 18, 14);
  layout->setSpacing(16);
  layout->addLayout(field);
  layout->addStretch();
  layout->addLayout(MakeButtonRow({controls("cmdOK"), controls("cmdCancel")}));
  return window;
}

}  // namespace kelp
