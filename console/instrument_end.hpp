// SPDX-License-Identifier: GPL-3.0-or-later
// The end of a serial line at which an instrument sends. One source for each kind of machine.
#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace kelp {

class InstrumentEnd {
 public:
  virtual ~InstrumentEnd() = default;
  /// What a program opens to hear it; empty when there is nothing to tell.
  [[nodiscard]] virtual const std::string& Path() const = 0;
  /// Sends text. It is lost when nobody takes it: as on a real line.
  virtual void Send(std::string_view text) = 0;
};

struct LineOptions {
  std::string Link = {};  ///< POSIX: a link to the device, which stays when the line hangs up
  std::string Port = {};  ///< Windows: the port to send on; empty for standard output
};

/// Plugs the instrument in, anew after a hang-up. Throws std::exception when that can't be.
std::unique_ptr<InstrumentEnd> PlugIn(const LineOptions& options);

/// What --help says of the line: what the program does with it, and the option that this machine has.
extern const char* const kLineHelp[2];
/// The name of that option.
extern const std::string_view kLineOption;

}  // namespace kelp
