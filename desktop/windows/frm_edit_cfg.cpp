// SPDX-License-Identifier: GPL-3.0-or-later
// The configuration editor: three groups of settings side by side, in a scroll area where the screen is
// too small for them.
#include <QBoxLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QScrollArea>
#include <array>

#include "desktop/windows/access_keys.hpp"
#include "desktop/windows/accessible.hpp"
#include "desktop/windows/forms.hpp"
#include "desktop/windows/look.hpp"

namespace kelp {

namespace {

// The lines of each group, in the order in which they are shown; line 17 stands for its two options.
const std::array<std::vector<int>, 3> kGroups = {{{0, 1, 2, 3, 4, 5, 21, 22, 23, 24},
                                                  {17, 18, 19, 20, 28, 25, 26, 27},
                                                  {6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 29, 30, 31, 32}}};

QLayout* MakeBlankOptions(const Binder& controls, std::vector<QWidget*>& chain) {
  auto* options = new QHBoxLayout;
  for (int i = 0; i < 2; ++i) {
    options->addWidget(controls("Option1", i));
    chain.push_back(controls("Option1", i));
  }
  // Line 17's own box and label are no part of the screen as the operator sees it.
  options->addWidget(controls("Label1", FrmEditCFG::kFirstBox + FrmEditCFG::kLineWithOptions));
  options->addWidget(controls("Text1", FrmEditCFG::kFirstBox + FrmEditCFG::kLineWithOptions));
  options->addStretch();
  return options;
}

void FillGroup(QGroupBox* group, const std::vector<int>& lines, int digits, const Binder& controls,
               std::vector<QWidget*>& chain) {
  auto* fields = new QGridLayout(group);
  fields->setVerticalSpacing(4);
  int row = 0;
  for (const int line : lines) {
    if (line == FrmEditCFG::kLineWithOptions) {
      fields->addLayout(MakeBlankOptions(controls, chain), row++, 0, 1, 2);
      continue;
    }
    const int index = FrmEditCFG::kFirstBox + line;
    AddField(fields, row++, 0, controls, "Label1", index, "Text1", index);
    controls("Text1", index)->setMinimumWidth(DigitsWidth(*group, digits));
    chain.push_back(controls("Text1", index));
  }
  fields->setColumnStretch(1, 1);
  fields->setRowStretch(row, 1);
}

// Lines that are changed in the file: their values, each with its meaning below.
QGroupBox* FillOthers(QGroupBox* group, const Binder& controls, const FrmEditCFG& form) {
  auto* fields = new QGridLayout(group);
  fields->setVerticalSpacing(2);
  int row = 0;
  for (int line = form.txtLine.kFirst; line <= form.txtLine.kLast; ++line, row += 2) {
    AddField(fields, row, 0, controls, "lblLine", line, "txtLine", line);
    controls("txtLine", line)->setFocusPolicy(Qt::ClickFocus);
    auto* meaning = new QLabel(FromProgram(form.txtLine[line].ToolTipText), group);
    meaning->setWordWrap(true);
    SetLook(meaning, 0.9);
    SetInk(meaning, FaintText);
    fields->addWidget(meaning, row + 1, 0, 1, 2);
  }
  fields->setColumnStretch(1, 1);
  return group;
}

}  // namespace

std::unique_ptr<ScreenWindow> MakeFrmEditCFG(Kelp& kelp, const Report& report) {
  auto window = std::make_unique<ScreenWindow>(kelp, "frmEditCFG", kelp.frmEditCFG.Form, report);
  Binder& controls = window->Controls;
  std::array<QGroupBox*, 3> groups = {};
  for (int i = 0; i < 3; ++i)
    groups[static_cast<std::size_t>(i)] = controls.Use("Label2", i, new QGroupBox(window.get()));
  auto* others = controls.Use("lblLines", -1, new QGroupBox(window.get()));
  controls.Bind(kelp.frmEditCFG);

  std::vector<QWidget*> chain;
  auto* page = new QWidget;
  auto* columns = new QHBoxLayout(page);
  columns->setSpacing(10);
  for (std::size_t i = 0; i < groups.size(); ++i) {
    // Paths and the initials of all analysts are the longest.
    FillGroup(groups[i], kGroups[i], i == 0 ? 24 : 19, controls, chain);
    auto* column = new QVBoxLayout;
    column->addWidget(groups[i]);
    // The shortest group leaves room for what can only be read.
    if (i == 1) column->addWidget(FillOthers(others, controls, kelp.frmEditCFG), 1);
    columns->addLayout(column, 1);
  }
  auto* scroll = new QScrollArea(window.get());
  scroll->setFrameShape(QFrame::NoFrame);
  scroll->setWidgetResizable(true);
  scroll->setWidget(page);
  scroll->setFocusPolicy(Qt::NoFocus);
  NameScrollBars(scroll);
  for (int i = 0; i < 3; ++i) chain.push_back(controls("Command1", i));
  chain.push_back(controls("cmdBack"));
  SetTabChain(chain);
  SetAccessKeys(controls,
                {{"Command1", 0, 'U'}, {"Command1", 1, 'C'}, {"Command1", 2, 'Q'}, {"cmdBack", -1, 'M'}});

  auto* layout = new QVBoxLayout(window.get());
  layout->setContentsMargins(8, 8, 8, 14);
  layout->addWidget(scroll, 1);
  QBoxLayout* buttons = MakeButtonRow(
      {controls("Command1", 0), controls("Command1", 1), controls("Command1", 2), controls("cmdBack")});
  buttons->setContentsMargins(10, 0, 10, 0);
  layout->addLayout(buttons);
  return window;
}

}  // namespace kelp
