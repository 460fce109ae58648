// SPDX-License-Identifier: GPL-3.0-or-later
// What a screen reader hears of the widgets that paint their value themselves: a label with a name and a
// value. Option buttons say that they are option buttons, also where the program and not Qt keeps one of them
// chosen.
#include <QAccessibleWidget>
#include <QComboBox>
#include <QLineEdit>
#include <QScrollArea>
#include <QScrollBar>
#include <utility>

#include "desktop/windows/accessible.hpp"
#include "desktop/windows/choice_buttons.hpp"
#include "desktop/windows/value_widget.hpp"

namespace kelp {

namespace {

class ValueInterface : public QAccessibleWidget {
 public:
  explicit ValueInterface(ValueWidget* widget)
      : QAccessibleWidget(widget, QAccessible::StaticText), widget_(widget) {}
  [[nodiscard]] QString text(QAccessible::Text kind) const override {
    const QString& shown = widget_->ShownText();
    if (kind == QAccessible::Value) return shown;
    return kind == QAccessible::Description && !shown.isEmpty() ? shown : QAccessibleWidget::text(kind);
  }

 private:
  ValueWidget* widget_;
};

class ChoiceInterface : public QAccessibleWidget {
 public:
  explicit ChoiceInterface(ChoiceButton* button)
      : QAccessibleWidget(button, QAccessible::RadioButton), button_(button) {}
  [[nodiscard]] QString text(QAccessible::Text kind) const override {
    return kind == QAccessible::Name ? button_->text().remove('&') : QAccessibleWidget::text(kind);
  }
  [[nodiscard]] QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    state.checkable = true;
    state.checked = button_->isChecked();
    return state;
  }
  [[nodiscard]] QStringList actionNames() const override { return {pressAction()}; }
  void doAction(const QString& action) override {
    if (action == pressAction()) button_->click();
  }

 private:
  ChoiceButton* button_;
};

// Qt names a combo box by its text on this platform; who hears it is to hear what the box is for.
class ComboInterface : public QAccessibleWidget {
 public:
  explicit ComboInterface(QComboBox* box) : QAccessibleWidget(box, QAccessible::ComboBox), box_(box) {}
  [[nodiscard]] QString text(QAccessible::Text kind) const override {
    if (kind == QAccessible::Name && !box_->accessibleName().isEmpty()) return box_->accessibleName();
    return kind == QAccessible::Value ? box_->currentText() : QAccessibleWidget::text(kind);
  }

 private:
  QComboBox* box_;
};

QAccessibleInterface* Make(const QString& /*name*/, QObject* object) {
  if (auto* value = dynamic_cast<ValueWidget*>(object)) return new ValueInterface(value);
  if (auto* choice = dynamic_cast<ChoiceButton*>(object)) return new ChoiceInterface(choice);
  if (auto* combo = qobject_cast<QComboBox*>(object)) return new ComboInterface(combo);
  return nullptr;
}

}  // namespace

void MakeAccessible() {
  static bool made = false;
  if (!std::exchange(made, true)) QAccessible::installFactory(Make);
}

void NameBox(QComboBox* box, const QString& name) {
  box->setAccessibleName(name);
  box->lineEdit()->setAccessibleName(name);
}

void NameScrollBars(QAbstractScrollArea* area) {
  area->verticalScrollBar()->setAccessibleName("Scroll up and down");
  area->horizontalScrollBar()->setAccessibleName("Scroll sideways");
}

void Announce(QWidget* widget) {
  QAccessibleEvent event(widget, QAccessible::Alert);
  QAccessible::updateAccessibility(&event);
}

}  // namespace kelp
