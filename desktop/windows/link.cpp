// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/windows/link.hpp"

#include <QAbstractButton>
#include <QAction>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStyle>

#include "desktop/windows/access_keys.hpp"
#include "desktop/windows/choice_buttons.hpp"
#include "desktop/windows/grid_view.hpp"
#include "desktop/windows/look.hpp"
#include "desktop/windows/value_widget.hpp"

namespace kelp {

namespace {

const std::string& TextOf(const Label& control) { return control.Caption; }
const std::string& TextOf(const Button& control) { return control.Caption; }
const std::string& TextOf(const TextBox& control) { return control.Text; }
const std::string& TextOf(const OptionButton& control) { return control.Caption; }
const std::string& TextOf(const CheckBox& control) { return control.Caption; }
const std::string& TextOf(const ComboBox& control) { return control.Text; }

void PutText(QWidget* widget, const QString& text) {
  if (auto* box = dynamic_cast<ValueWidget*>(widget))
    box->ShowText(text);
  else if (auto* edit = qobject_cast<QLineEdit*>(widget))
    edit->setText(text);
  else if (auto* button = qobject_cast<QAbstractButton*>(widget))
    button->setText(WithAccessKey(*widget, text));
  else if (auto* label = qobject_cast<QLabel*>(widget))
    label->setText(WithAccessKey(*widget, text));
  else if (auto* group = qobject_cast<QGroupBox*>(widget))
    group->setTitle(text);
  else if (auto* combo = qobject_cast<QComboBox*>(widget))
    combo->setEditText(text);
}

// A box that is for reading only looks like no box to be typed into.
void SetReadOnly(QLineEdit* edit, bool readOnly) {
  if (edit->isReadOnly() == readOnly) return;
  edit->setReadOnly(readOnly);
  QPalette palette;
  if (readOnly) palette.setColor(QPalette::Base, palette.color(QPalette::Window));
  edit->setPalette(palette);
}

// A value that is wrong is marked by a sign in its box as well as by colour.
void MarkProblem(QWidget* widget, bool problem) {
  auto* edit = qobject_cast<QLineEdit*>(widget);
  if (edit == nullptr) return;
  for (QAction* sign : edit->actions()) delete sign;
  if (problem)
    edit->addAction(edit->style()->standardIcon(QStyle::SP_MessageBoxWarning), QLineEdit::TrailingPosition);
  QPalette palette;
  if (problem) palette.setColor(QPalette::Base, Mixed(palette.color(QPalette::Base), WarnInk(palette), 0.25));
  edit->setPalette(palette);
}

// A list may be set without the text that stands in the box being lost.
void PutList(QWidget* widget, const std::vector<std::string>& list) {
  auto* combo = qobject_cast<QComboBox*>(widget);
  if (combo == nullptr) return;
  const QString text = combo->currentText();
  combo->clear();
  for (const std::string& item : list) combo->addItem(FromProgram(item));
  combo->setEditText(text);
}

template <class Control>
class LinkTo : public Link {
 public:
  LinkTo(FocusPlace place, Control& control, QWidget* widget)
      : Link(std::move(place), widget), control_(control) {
    if constexpr (requires { control.List; }) PutList(Widget, control.List);
    PutText(Widget, FromProgram(TextOf(control)));
    if constexpr (requires { control.Value; }) As<QAbstractButton>(Widget, Place)->setChecked(control.Value);
    PutRest();
    Shown = control;
  }

  void ShowChanges() override {
    bool changed = false;
    const auto differs = [&changed](const auto& now, const auto& shown) {
      changed |= now != shown;
      return now != shown;
    };
    if constexpr (requires { control_.List; })
      if (differs(control_.List, Shown.List)) PutList(Widget, control_.List);
    if (differs(TextOf(control_), TextOf(Shown))) PutText(Widget, FromProgram(TextOf(control_)));
    if constexpr (requires { control_.Value; })
      if (differs(control_.Value, Shown.Value))
        As<QAbstractButton>(Widget, Place)->setChecked(control_.Value);
    bool rest = differs(control_.ToolTipText, Shown.ToolTipText);
    rest |= differs(control_.Enabled, Shown.Enabled) || differs(control_.Visible, Shown.Visible);
    if constexpr (requires { control_.Problem; }) rest |= differs(control_.Problem, Shown.Problem);
    if (rest) PutRest();
    if (changed) Shown = control_;
  }

  /// What the widget shows; a handler of the widget's own signals keeps it true.
  Control Shown = {};

 private:
  void PutRest() {
    std::string tip = control_.ToolTipText;
    if constexpr (requires { control_.Problem; }) {
      if (control_.Problem != Shown.Problem) MarkProblem(Widget, !control_.Problem.empty());
      if (!control_.Problem.empty()) tip = control_.Problem + (tip.empty() ? "" : "\n" + tip);
    }
    if constexpr (requires { control_.Locked; })
      if (auto* edit = qobject_cast<QLineEdit*>(Widget)) SetReadOnly(edit, control_.Locked);
    Widget->setToolTip(PlainToolTip(tip + Widget->property(kKeyHint).toString().toStdString()));
    Widget->setEnabled(control_.Enabled);
    if (control_.Visible != Shown.Visible) Widget->setVisible(control_.Visible);
  }

  Control& control_;
};

template <class Control>
void ReportClicks(LinkTo<Control>* link, QAbstractButton* button, const Report& report) {
  // A button clicked with the mouse leaves the focus where it is: the space bar is to go on meaning the
  // run's own button.
  button->setFocusPolicy(Qt::TabFocus);
  if (auto* option = qobject_cast<QRadioButton*>(button)) option->setAutoExclusive(false);
  QObject::connect(button, &QAbstractButton::clicked, button, [link, report]([[maybe_unused]] bool checked) {
    if constexpr (requires { link->Shown.Value; }) link->Shown.Value = checked;
    report({.Kind = EventKind::Click, .Place = link->Place});
  });
}

template <class Control>
void ReportEdits(LinkTo<Control>* link, QLineEdit* edit, const Report& report) {
  QObject::connect(edit, &QLineEdit::textEdited, edit, [link, report](const QString& text) {
    link->Shown.Text = ToProgram(text);
    report({.Kind = EventKind::Edit, .Place = link->Place, .Text = link->Shown.Text});
  });
}

class GridLink : public Link {
 public:
  GridLink(FocusPlace place, GridView* view) : Link(std::move(place), view), view_(view) {}
  void ShowChanges() override { view_->ShowChanges(); }

 private:
  GridView* view_;
};

}  // namespace

std::unique_ptr<Link> MakeLink(FocusPlace place, Label& control, QWidget* widget, QWidget* parent,
                               const Report& /*report*/) {
  if (widget == nullptr) {
    auto* label = new QLabel(parent);
    label->setTextFormat(Qt::PlainText);
    widget = label;
  }
  return std::make_unique<LinkTo<Label>>(std::move(place), control, widget);
}

std::unique_ptr<Link> MakeLink(FocusPlace place, Button& control, QWidget* widget, QWidget* parent,
                               const Report& report) {
  auto* button = widget == nullptr ? new QPushButton(parent) : As<QPushButton>(widget, place);
  auto link = std::make_unique<LinkTo<Button>>(std::move(place), control, button);
  ReportClicks(link.get(), button, report);
  return link;
}

std::unique_ptr<Link> MakeLink(FocusPlace place, TextBox& control, QWidget* widget, QWidget* parent,
                               const Report& report) {
  if (widget == nullptr) widget = new QLineEdit(parent);
  auto link = std::make_unique<LinkTo<TextBox>>(std::move(place), control, widget);
  if (auto* edit = qobject_cast<QLineEdit*>(widget)) ReportEdits(link.get(), edit, report);
  if (auto* box = dynamic_cast<ValueBox*>(widget); box != nullptr && box->Usable())
    box->OnUse([place = link->Place, report] { report({.Kind = EventKind::Click, .Place = place}); });
  return link;
}

std::unique_ptr<Link> MakeLink(FocusPlace place, OptionButton& control, QWidget* widget, QWidget* parent,
                               const Report& report) {
  auto* button = widget == nullptr ? new ChoiceButton(parent) : As<QAbstractButton>(widget, place);
  button->setCheckable(true);
  if (auto* option = qobject_cast<QRadioButton*>(button)) option->setAutoExclusive(false);
  auto link = std::make_unique<LinkTo<OptionButton>>(std::move(place), control, button);
  ReportClicks(link.get(), button, report);
  return link;
}

std::unique_ptr<Link> MakeLink(FocusPlace place, CheckBox& control, QWidget* widget, QWidget* parent,
                               const Report& report) {
  auto* button = widget == nullptr ? new TickBox(parent) : As<QAbstractButton>(widget, place);
  auto link = std::make_unique<LinkTo<CheckBox>>(std::move(place), control, button);
  ReportClicks(link.get(), button, report);
  return link;
}

std::unique_ptr<Link> MakeLink(FocusPlace place, ComboBox& control, QWidget* widget, QWidget* parent,
                               const Report& report) {
  auto* combo = widget == nullptr ? new QComboBox(parent) : As<QComboBox>(widget, place);
  combo->setEditable(true);
  combo->setInsertPolicy(QComboBox::NoInsert);
  // Initials are taken as typed: nothing is completed to another analyst's.
  combo->setCompleter(nullptr);
  auto link = std::make_unique<LinkTo<ComboBox>>(std::move(place), control, combo);
  ReportEdits(link.get(), combo->lineEdit(), report);
  QObject::connect(combo, &QComboBox::textActivated, combo, [link = link.get(), report](const QString& text) {
    link->Shown.Text = ToProgram(text);
    report({.Kind = EventKind::Edit, .Place = link->Place, .Text = link->Shown.Text});
  });
  return link;
}

std::unique_ptr<Link> MakeLink(FocusPlace place, Grid& control, QWidget* widget, QWidget* parent,
                               const Report& report) {
  auto* view = widget == nullptr ? new GridView(control, place, report, parent) : As<GridView>(widget, place);
  return std::make_unique<GridLink>(std::move(place), view);
}

}  // namespace kelp
