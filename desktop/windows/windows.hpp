// SPDX-License-Identifier: GPL-3.0-or-later
// All windows of the program: built when they are first shown, kept in step with the screens' values,
// and the one source of the operator's events.
#pragma once

#include <QByteArray>
#include <QDeadlineTimer>
#include <QObject>
#include <map>
#include <memory>
#include <optional>
#include <string>

#include "desktop/windows/screen_window.hpp"

class QAbstractButton;
class QKeyEvent;
class QPushButton;

namespace kelp {

class FrmAcquireWindow;

class Windows : public QObject {
 public:
  /// `post` hands an event to the program (app/door.hpp) and returns what it returns.
  Windows(Kelp& kelp, std::function<bool(const Event&)> post);
  ~Windows() override;

  /// Shows what changed in the visible screens. Call it after each pass and tick, and before a message
  /// box; after an event it is done here.
  void ShowChanges();

  /// The window of a screen, built if it was not yet; null for a name that is no screen's.
  QWidget* WindowOf(const std::string& screen);

  // The platform's ScreenShown, ScreenHidden and ScreenRaised.
  void Show(const std::string& screen);
  void Hide(const std::string& screen);
  void Raise(const std::string& screen);

  /// The window in front, as the parent of message boxes; null when none is visible.
  QWidget* FrontWindow();

  /// The button "Machine settings..." of the main window.
  QPushButton* MachineSettingsButton() { return machineSettings_; }
  /// The button "Review cruise..." of the main window.
  QPushButton* ReviewButton() { return review_; }
  /// Ctrl+P was pressed on the acquisition screen: its profile so far is wanted.
  std::function<void()> ProfileWanted = [] {};
  /// A checkable button in the status bar: checked is sound on.
  QAbstractButton* SoundSwitch() { return soundSwitch_; }

  /// The alarms that nobody has seen yet call for the operator.
  [[nodiscard]] bool AlarmCalls() const;

  /// A window that comes up by itself takes no key for this many milliseconds: the key was meant for what was
  /// in front before. 0 for a script.
  int KeyRest = 700;

  void SetPortState(const QString& text);
  void SetLastFile(const QString& text);

  /// Places and sizes of the windows, to be kept from one run of the program to the next. Restore them
  /// before the first window is shown.
  [[nodiscard]] QByteArray Geometry() const;
  void RestoreGeometry(const QByteArray& geometry);

  /// The widget of a control, or null when its window was not built yet.
  QWidget* WidgetOf(const FocusPlace& place);

  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  void Send(const Event& event);
  std::unique_ptr<ScreenWindow> Make(const std::string& screen);
  void Place(ScreenWindow& window);
  [[nodiscard]] QPoint BesideReadings(QSize size, const QRect& space) const;
  [[nodiscard]] ScreenWindow* Built(const std::string& screen) const;
  /// The window that a widget belongs to, or null for message boxes and other windows.
  [[nodiscard]] ScreenWindow* WindowAround(const QWidget* widget) const;
  void TakeFocus(const FocusPlace& place);
  /// True when a key of a widget was taken and goes no further.
  bool TakeKey(const QKeyEvent& key, QWidget& widget, const ScreenWindow& window);
  void SendFocus();
  void ShowFocus();
  static void GiveFocus(QWidget* widget);

  Kelp& kelp_;
  std::function<bool(const Event&)> post_;
  QPushButton* machineSettings_;
  QPushButton* review_;
  QAbstractButton* soundSwitch_;
  std::map<std::string, std::unique_ptr<ScreenWindow>> windows_ = {};
  std::map<std::string, QByteArray> geometry_ = {};
  FrmAcquireWindow* acquire_ = nullptr;
  QString portState_;
  QString lastFile_;
  FocusPlace shownFocus_ = {};
  std::optional<FocusPlace> focusToSend_;
  const ScreenWindow* resting_ = nullptr;  ///< came up by itself and takes no key until `rest_` is over
  QDeadlineTimer rest_;
  bool sending_ = false;  ///< an event is being handled; the operator can do nothing else meanwhile
};

}  // namespace kelp
