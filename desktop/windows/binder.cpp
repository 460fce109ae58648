// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/windows/binder.hpp"

#include <QLabel>

namespace kelp {

QWidget* Binder::operator()(const std::string& control, int index) const {
  QWidget* widget = Find(control, index);
  if (widget == nullptr) qFatal("%s has no control %s(%d)", screen_.c_str(), control.c_str(), index);
  return widget;
}

QWidget* Binder::Find(const std::string& control, int index) const {
  const auto found = byName_.find({control, index});
  return found == byName_.end() ? nullptr : found->second->Widget;
}

const FocusPlace* Binder::PlaceOf(const QObject* widget) const {
  const auto found = byWidget_.find(widget);
  return found == byWidget_.end() ? nullptr : &(*found)->Place;
}

void Binder::Pair(const std::string& label, int labelIndex, const std::string& box, int boxIndex) const {
  As<QLabel>(label, labelIndex)->setBuddy((*this)(box, boxIndex));
}

void Binder::ShowChanges() {
  for (const auto& link : links_) link->ShowChanges();
}

void Binder::Keep(const std::pair<std::string, int>& key, std::unique_ptr<Link> link) {
  byName_[key] = link.get();
  byWidget_[link->Widget] = link.get();
  links_.push_back(std::move(link));
}

}  // namespace kelp
