// SPDX-License-Identifier: GPL-3.0-or-later
// The final data: constants after the cruise, the table, and its files.
#include <QBoxLayout>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "core/text.hpp"
#include "desktop/review/tabs.hpp"
#include "desktop/review/text_table.hpp"
#include "platform/error.hpp"
#include "review/final_files.hpp"

namespace kelp {

namespace {

QStringList Headings() {
  QStringList headings;
  for (const FinalColumn& column : FinalColumns()) headings << column.Name;
  return headings;
}

std::optional<double> Typed(const QLineEdit& box, const char* name) {
  const QString text = box.text().trimmed();
  if (text.isEmpty()) return std::nullopt;
  bool good = false;
  const double value = QLocale::c().toDouble(text, &good);
  if (!good)
    throw RunTimeError(ErrorKind::InvalidCall,
                       std::string(name) + " after the cruise is no number: \"" + text.toStdString() + "\"");
  return value;
}

}  // namespace

FinalTab::FinalTab(ReviewDesk& desk, QWidget* parent)
    : QWidget(parent),
      desk_(desk),
      postF_(new QLineEdit(this)),
      postTau_(new QLineEdit(this)),
      state_(new QLabel(this)),
      write_(new QPushButton("&Write final data", this)),
      rows_(new TextTable(this, Headings())),
      left_(new TextTable(this, {"Left out or without results", "Why"})) {
  postF_->setPlaceholderText("none");
  postTau_->setPlaceholderText("none");
  state_->setTextFormat(Qt::PlainText);
  state_->setWordWrap(true);
  auto* form = new QFormLayout;
  form->addRow("&F after the cruise", postF_);
  form->addRow("&tau after the cruise", postTau_);
  auto* top = new QHBoxLayout;
  top->addLayout(form);
  top->addWidget(write_, 0, Qt::AlignBottom);
  top->addWidget(state_, 1);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(top);
  layout->addWidget(rows_, 4);
  layout->addWidget(left_, 1);
  for (QLineEdit* box : {postF_, postTau_})
    QObject::connect(box, &QLineEdit::editingFinished, this, [this] { Calculate(); });
  QObject::connect(write_, &QPushButton::clicked, this, [this] { Write(); });
}

PostCalibration FinalTab::Post() const { return {Typed(*postF_, "F"), Typed(*postTau_, "tau")}; }

void FinalTab::Refresh() { Calculate(); }

void FinalTab::Calculate() {
  std::vector<QStringList> rows;
  std::vector<QStringList> left;
  try {
    const FinalData made = MakeFinalData(desk_.Shown->Cruise, Post());
    for (const FinalRow& row : made.Rows) {
      QStringList cells;
      for (const std::string& cell : row.Cells) cells << Text(cell);
      rows.push_back(cells);
    }
    for (const auto* list : {&made.Left, &made.Notes})
      for (const LeftOut& item : *list) left.push_back({Text(item.File), Text(item.Reason)});
    state_->setText(Text(std::to_string(made.Rows.size()) + " samples; to be written to " +
                         FinalCsvPath(desk_.Shown->Cruise)));
    write_->setEnabled(!made.Rows.empty());
  } catch (const RunTimeError& error) {
    state_->setText(Text(error.what()));
    write_->setEnabled(false);
  }
  rows_->Show(std::move(rows));
  left_->setVisible(!left.empty());
  left_->Show(std::move(left));
}

void FinalTab::Write() {
  try {
    const PostCalibration post = Post();
    const Cruise& cruise = desk_.Shown->Cruise;
    const std::string path = FinalCsvPath(cruise);
    WriteFinalFiles(desk_.Program.platform.disk(), path, cruise, MakeFinalData(cruise, post), post);
    state_->setText(Text("Written: " + path + ", and what its columns mean beside it (.txt)."));
    desk_.Tell(Text(path));
  } catch (const RunTimeError& error) {
    state_->setText(Text("Not written. " + std::string(error.what())));
  }
}

}  // namespace kelp
