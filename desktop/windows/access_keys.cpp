// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/windows/access_keys.hpp"

#include <QAbstractButton>
#include <QLabel>
#include <QVariant>

#include "desktop/windows/binder.hpp"

namespace kelp {

namespace {

constexpr const char* kLetter = "accessKey";
constexpr const char* kTaken = "accessKeysOfOthers";

void ShowAgain(QWidget* widget) {
  if (auto* button = qobject_cast<QAbstractButton*>(widget))
    button->setText(WithAccessKey(*widget, button->text()));
  if (auto* label = qobject_cast<QLabel*>(widget)) label->setText(WithAccessKey(*widget, label->text()));
}

}  // namespace

QChar AccessKeyOf(const QString& caption) {
  const qsizetype mark = caption.indexOf('&');
  return mark < 0 || mark + 1 >= caption.size() ? QChar() : caption[mark + 1].toUpper();
}

QString WithAccessKey(const QWidget& widget, const QString& caption) {
  const QChar own = AccessKeyOf(caption);
  if (!own.isNull() && widget.property(kTaken).toString().contains(own)) return QString(caption).remove('&');
  const QString letter = widget.property(kLetter).toString();
  if (!own.isNull() || letter.isEmpty()) return caption;
  const qsizetype at = caption.indexOf(letter, 0, Qt::CaseInsensitive);
  return at < 0 ? caption : QString(caption).insert(at, '&');
}

void SetAccessKeys(const Binder& controls, std::initializer_list<AccessKey> keys) {
  for (const AccessKey& key : keys) {
    QWidget* widget = controls(key.Control, key.Index);
    widget->setProperty(kLetter, QString(QLatin1Char(key.Letter)));
    ShowAgain(widget);
  }
}

void SetKeyHint(QWidget* widget, const char* hint) {
  widget->setProperty(kKeyHint, QString("\n") + hint);
  widget->setToolTip(widget->toolTip() + "\n" + hint);
}

void KeepAccessKeysFree(QWidget* widget, const QString& letters) {
  widget->setProperty(kTaken, letters);
  ShowAgain(widget);
}

}  // namespace kelp
