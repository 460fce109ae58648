// SPDX-License-Identifier: GPL-3.0-or-later
// The tabs of the review window. Each shows what the desk holds, anew when `Refresh` is called, and keeps
// one picture at a time.
#pragma once

#include <QWidget>

#include "desktop/review/review_desk.hpp"

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTableWidget;

namespace kelp {

class PictureView;
class TextTable;

class StationsTab : public QWidget {
 public:
  StationsTab(ReviewDesk& desk, QWidget* parent);
  void Refresh();

 private:
  ReviewDesk& desk_;
  TextTable* stations_;
  TextTable* left_;
  QLabel* heading_;
};

class ProfileTab : public QWidget {
 public:
  ProfileTab(ReviewDesk& desk, QWidget* parent);
  void Refresh();
  /// Chooses the station with this processing number.
  void Choose(const std::string& procNum);

 private:
  void ShowPictures();
  ReviewDesk& desk_;
  TextTable* stations_;
  PictureView* profile_;
  PictureView* ratio_;
};

class ChartsTab : public QWidget {
 public:
  ChartsTab(ReviewDesk& desk, QWidget* parent);
  void Refresh();

 private:
  void ShowChart();
  ReviewDesk& desk_;
  QComboBox* which_;
  PictureView* chart_;
  TextTable* outside_;
};

class ChecksTab : public QWidget {
 public:
  ChecksTab(ReviewDesk& desk, QWidget* parent);
  void Refresh();
  /// A finding of a station was chosen with Enter or a double click.
  std::function<void(const std::string& procNum)> Chosen = [](const std::string&) {};

 private:
  ReviewDesk& desk_;
  TextTable* findings_;
};

class CalibrationTab : public QWidget {
 public:
  CalibrationTab(ReviewDesk& desk, QWidget* parent);
  void Refresh();

 private:
  void ShowTubes();
  void Calculate();
  void TakeOver();
  [[nodiscard]] const Station* Current() const;
  ReviewDesk& desk_;
  std::vector<std::size_t> lab_ = {};  ///< the LAB/CAL stations, as indexes
  std::optional<NewCalibration> result_ = {};
  QComboBox* station_;
  QComboBox* weights_;
  QTableWidget* tubes_;
  QLabel* text_;
  PictureView* picture_;
  QPushButton* take_;
};

class FinalTab : public QWidget {
 public:
  FinalTab(ReviewDesk& desk, QWidget* parent);
  void Refresh();

 private:
  [[nodiscard]] PostCalibration Post() const;
  void Calculate();
  void Write();
  ReviewDesk& desk_;
  QLineEdit* postF_;
  QLineEdit* postTau_;
  QLabel* state_;
  QPushButton* write_;
  TextTable* rows_;
  TextTable* left_;
};

}  // namespace kelp
