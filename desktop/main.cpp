// SPDX-License-Identifier: GPL-3.0-or-later
// kelp: the desktop program.
#include <QApplication>
#include <cstdlib>
#include <iostream>

#include "desktop/machine/command_line.hpp"
#include "desktop/machine/desktop_run.hpp"
#include "desktop/machine/early_fonts.hpp"
#include "desktop/machine/message_box.hpp"
#include "desktop/machine/window_script_host.hpp"
#include "platform/arguments.hpp"

namespace {

constexpr int kWrong = 2;

// Qt aborts where it finds no display; an operator wants a word and a plain end.
void EndWithoutDisplay(QtMsgType type, const QMessageLogContext& /*context*/, const QString& /*text*/) {
  if (type != QtFatalMsg) return;
  std::cerr << "kelp: there is no display to open a window on (DISPLAY is \""
            << qgetenv("DISPLAY").toStdString() << "\"). kelp-console runs stations in a terminal."
            << std::endl;
  std::_Exit(1);
}

int Play(const kelp::Options& options) {
  const kelp::ScriptResult result = kelp::PlayInWindows(options);
  std::cout.flush();
  if (!result.message.empty()) std::cerr << result.message << std::endl;
  return static_cast<int>(result.status);
}

int Run(const kelp::Options& options) {
  kelp::DesktopRun run(options);
  // Not quit(): that would ask each window first whether it may be closed.
  run.Ended = [] { QCoreApplication::exit(0); };
  run.Start();
  return run.program().Ended ? 0 : QCoreApplication::exec();
}

}  // namespace

int main(int argc, char** argv) {
  const kelp::Options options = kelp::ReadCommandLine(kelp::HostArguments(argc, argv));
  if (options.Help || options.Version) {
    std::cout << (options.Help ? kelp::kDesktopHelp : "kelp " KELP_VERSION "\n");
    return 0;
  }
  if (!options.Problem.empty()) {
    std::cerr << (options.Script.empty() ? "kelp" : options.Script + ":0") << ": " << options.Problem
              << std::endl;
    return kWrong;
  }
  const QtMessageHandler usual = qInstallMessageHandler(EndWithoutDisplay);
  const kelp::EarlyFonts fonts;
  const QApplication application(argc, argv);
  qInstallMessageHandler(usual);
  QApplication::setApplicationName(QStringLiteral("kelp"));
  QApplication::setDesktopFileName(QStringLiteral("org.kelp.Kelp"));
  try {
    return options.Script.empty() ? Run(options) : Play(options);
  } catch (const std::exception& error) {
    std::cerr << "kelp: " << error.what() << std::endl;
    kelp::ShowMessage(nullptr, {error.what(), "Kelp", kelp::Buttons::Ok, kelp::Icon::Critical});
    return kWrong;
  }
}
