// SPDX-License-Identifier: GPL-3.0-or-later
// The machine under the program as the desktop has it: real disk and clock, serial line, modal
// windows, printer, text editor.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "desktop/machine/fluorometer_line.hpp"
#include "desktop/machine/print_preview.hpp"
#include "desktop/machine/report_printer.hpp"
#include "desktop/machine/screen_host.hpp"
#include "platform/drive_map.hpp"
#include "platform/platform.hpp"

namespace kelp {

class QtPlatform : public Platform {
 public:
  /// Everything handed in must outlive the platform; `editor` is looked up at each launch.
  QtPlatform(Disk& disk, const DriveMap& drives, FluorometerLine& line, const QString& editor,
             const QString& printer)
      : disk_(disk), drives_(drives), line_(line), editor_(editor), printer_(printer) {
    printer_.Preview = [this](QPrinter& device, const QStringList& lines) {
      if (!ShowsPreview()) return true;
      const DialogTime dialog(Screens);
      return PreviewPages(Screens.Front(), device, lines);
    };
  }

  ScreenHost Screens = {};
  /// A message box comes up: the operator is called.
  std::function<void()> Question = [] {};
  /// The program path of a PDF beside the station's files.
  std::function<std::string()> PdfPath = [] { return std::string("c:\\kelp\\report.pdf"); };
  /// Reports are shown before they are printed.
  std::function<bool()> ShowsPreview = [] { return false; };
  /// The operator chose a printer.
  std::function<void(const QString&)> PrinterChosen = [](const QString&) {};

  Disk& disk() override { return disk_; }
  std::string OpenPort(int number, const std::string& settings) override {
    return line_.Open(number, settings);
  }
  void ClosePort() override { line_.Close(); }
  bool PortIsOpen() override { return line_.IsOpen(); }
  std::size_t BytesWaiting() override { return line_.BytesWaiting(); }
  std::string ReadWaiting() override { return line_.ReadAll(); }
  Answer Ask(const Message& message) override;
  std::optional<std::string> AskFile(const FileQuestion& question) override;
  std::string Launch(const std::string& command) override;
  void ChoosePrinter() override;
  void PrintLine(const std::string& line) override { printer_.AddLine(line); }
  void EndDocument() override;
  void ScreenShown(const std::string& screen) override { Screens.Shown(screen); }
  void ScreenHidden(const std::string& screen) override { Screens.Hidden(screen); }
  void ScreenRaised(const std::string& screen) override { Screens.Raised(screen); }
  void Aside(const std::function<void()>& work) override;
  std::string MachineName() override;
  std::string UserName() override;
  LocalTime Now() override;
  std::int64_t Milliseconds() override;

 private:
  Disk& disk_;
  const DriveMap& drives_;
  FluorometerLine& line_;
  const QString& editor_;
  ReportPrinter printer_;
};

}  // namespace kelp
