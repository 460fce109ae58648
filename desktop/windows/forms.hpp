// SPDX-License-Identifier: GPL-3.0-or-later
// The windows of the smaller screens, one function each.
#pragma once

#include <memory>

#include "desktop/windows/screen_window.hpp"

class QPushButton;

namespace kelp {

/// `machineSettings` is a button beside those of the screen; the window takes it over.
std::unique_ptr<ScreenWindow> MakeFrmMain(Kelp& kelp, const Report& report, QPushButton* review,
                                          QPushButton* machineSettings);
std::unique_ptr<ScreenWindow> MakeFrmLogin(Kelp& kelp, const Report& report);
std::unique_ptr<ScreenWindow> MakeFrmCreateBase(Kelp& kelp, const Report& report);
std::unique_ptr<ScreenWindow> MakeFrmWhatsNext(Kelp& kelp, const Report& report);
std::unique_ptr<ScreenWindow> MakeFrmProgress(Kelp& kelp, const Report& report);
std::unique_ptr<ScreenWindow> MakeFrmChangeStep(Kelp& kelp, const Report& report);
std::unique_ptr<ScreenWindow> MakeDlgRunRem(Kelp& kelp, const Report& report);
std::unique_ptr<ScreenWindow> MakeFrmRecalc(Kelp& kelp, const Report& report);
std::unique_ptr<ScreenWindow> MakeFrmEditCFG(Kelp& kelp, const Report& report);

}  // namespace kelp
