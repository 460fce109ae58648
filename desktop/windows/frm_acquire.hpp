// SPDX-License-Identifier: GPL-3.0-or-later
// The window of the acquisition screen, laid out as an instrument panel: on the left the fluorometer
// with its reading, charts, instruction and buttons, on the right the station with its header, its blanks
// and standards, the sample grid and the last reads. Across the top stands what is read from two metres away.
#pragma once

#include "app/alarms.hpp"
#include "app/glance.hpp"
#include "app/panel.hpp"
#include "desktop/windows/screen_window.hpp"

class QAbstractButton;
class QGridLayout;
class QGroupBox;

namespace kelp {

class AlarmBand;
class GridView;
class InstructionBox;
class MarkedEdit;
class Sign;
class StabilityView;
class StatePlate;
class StripChartView;
class ValueBox;
class WrapText;

class FrmAcquireWindow : public ScreenWindow {
 public:
  /// `soundSwitch` goes into the status bar; the window takes it over.
  FrmAcquireWindow(Kelp& kelp, const Report& report, QAbstractButton* soundSwitch);

  void ShowChanges() override;
  void SetPortState(const QString& text);
  void SetLastFile(const QString& text);

  /// Somebody is to be called: an alarm that nobody has seen.
  [[nodiscard]] bool AlarmCalls() const { return call_.Calling(); }
  /// The place of the Rb and Ra columns on the display.
  [[nodiscard]] QRect ReadingColumns() const;

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void MakeOwnWidgets();
  void NameWidgets() const;
  void SetTabs(QWidget* soundSwitch) const;

  QWidget* MakeTopLine();

  // The fluorometer's side.
  QWidget* MakeFluorometer();
  QWidget* MakeReading();
  QLayout* MakeRunButtons();
  void PlaceRunButtons(bool oneRow);
  [[nodiscard]] QLayout* MakeStepSelector() const;

  // The station's side.
  [[nodiscard]] QWidget* MakeHeader() const;
  [[nodiscard]] QWidget* MakeStandards() const;
  [[nodiscard]] QWidget* MakeHistory() const;

  QWidget* MakeStatusBar(QAbstractButton* soundSwitch);
  void ShowPanel();
  void ShowGlance();
  ValueBox* MakeStatusText(const char* name);

  Kelp& kelp_;
  QGroupBox* fluorometer_ = nullptr;
  QGroupBox* header_ = nullptr;
  StripChartView* chart_ = nullptr;
  GridView* grid_ = nullptr;
  std::vector<MarkedEdit*> standards_ = {};  ///< the boxes of blanks and standards
  StabilityView* stability_ = nullptr;
  InstructionBox* instruction_ = nullptr;
  AlarmBand* band_ = nullptr;
  ValueBox* reading_ = nullptr;
  WrapText* beside_ = nullptr;
  ValueBox* last_ = nullptr;
  StatePlate* plate_ = nullptr;
  QGridLayout* runButtons_ = nullptr;
  QWidget* topLine_ = nullptr;
  AlarmCall call_ = {};
  AcidClock acid_ = {};
  Glance glance_ = {};  ///< what is shown of it
  Sign* sdSign_ = nullptr;
  Sign* readsSign_ = nullptr;
  ValueBox* step_ = nullptr;
  ValueBox* station_ = nullptr;
  ValueBox* sample_ = nullptr;
  ValueBox* port_ = nullptr;
  ValueBox* lastFile_ = nullptr;
};

}  // namespace kelp
