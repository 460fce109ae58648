// The window of the acquisition screen, laid out as an instrument panel: on the left the fluorometer
// with its reading, chart, instruction and buttons, on the right the station with its header, its blanks
// and standards and the sample grid.
#pragma once

#include "app/panel.hpp"
#include "desktop/windows/screen_window.hpp"

class QAbstractButton;
class QGroupBox;

namespace kelp {

class GridView;
class MarkedEdit;
class Sign;
class StripChartView;
class ValueBox;

class FrmAcquireWindow : public ScreenWindow {
 public:
  /// `soundSwitch` goes into the status bar; the window takes it over.
  FrmAcquireWindow(Kelp& kelp, const Report& report, QAbstractButton* soundSwitch);

  void ShowChanges() override;
  void SetPortState(const QString& text);
  void SetLastFile(const QString& text);

 private:
  void MakeOwnWidgets();
  void NameWidgets() const;
  void SetTabs(QWidget* soundSwitch) const;

  // The fluorometer's side.
  QWidget* MakeFluorometer();
  QWidget* MakeReading();
  [[nodiscard]] QLayout* MakeRunButtons() const;
  [[nodiscard]] QLayout* MakeStepSelector() const;
  QLayout* MakeHistory();

  // The station's side.
  [[nodiscard]] QWidget* MakeHeader() const;
  [[nodiscard]] QWidget* MakeStandards() const;

  QWidget* MakeStatusBar(QAbstractButton* soundSwitch);
  void ShowPanel();
  ValueBox* MakeStatusText(int digits);

  Kelp& kelp_;
  QGroupBox* fluorometer_ = nullptr;
  QGroupBox* header_ = nullptr;
  StripChartView* chart_ = nullptr;
  GridView* grid_ = nullptr;
  std::vector<MarkedEdit*> standards_ = {};  ///< the boxes of blanks and standards
  Sign* sdSign_ = nullptr;
  Sign* readsSign_ = nullptr;
  ValueBox* step_ = nullptr;
  ValueBox* station_ = nullptr;
  ValueBox* sample_ = nullptr;
  ValueBox* port_ = nullptr;
  ValueBox* lastFile_ = nullptr;
};

}  // namespace kelp
