// The first start on a machine: says where files will lie and offers the simulated fluorometer.
#pragma once

#include <QString>

namespace kelp {

enum class FirstChoice { Start, Simulate, Settings };

/// Tells `folder` (drive c) and `device` (port 1) and lets the operator choose how to begin. Closing
/// the window is to start.
FirstChoice AskFirstChoice(const QString& folder, const QString& device);

}  // namespace kelp
