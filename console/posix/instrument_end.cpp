// SPDX-License-Identifier: GPL-3.0-or-later
// The instrument on a pseudo-terminal.
#include "console/instrument_end.hpp"

#include <filesystem>
#include <stdexcept>

#include "console/posix/pseudo_terminal.hpp"

namespace kelp {

namespace {

class TerminalEnd : public InstrumentEnd {
 public:
  explicit TerminalEnd(std::filesystem::path link) : link_(std::move(link)) {
    if (link_.empty()) return;
    // Only a link of an earlier time gives way: anything else there is somebody's file.
    std::error_code missing;
    const auto status = std::filesystem::symlink_status(link_, missing);
    if (std::filesystem::is_symlink(status))
      std::filesystem::remove(link_);
    else if (std::filesystem::exists(status))
      throw std::runtime_error("--link " + link_.string() +
                               ": a file or folder of that name is there; choose a name that is free");
    std::filesystem::create_symlink(terminal_.Path(), link_);
  }
  ~TerminalEnd() override {
    std::error_code ignored;
    if (std::filesystem::is_symlink(link_, ignored)) std::filesystem::remove(link_, ignored);
  }
  TerminalEnd(const TerminalEnd&) = delete;
  TerminalEnd& operator=(const TerminalEnd&) = delete;

  [[nodiscard]] const std::string& Path() const override { return terminal_.Path(); }
  void Send(std::string_view text) override { terminal_.Send(text); }

 private:
  PseudoTerminal terminal_ = {};
  std::filesystem::path link_;
};

}  // namespace

const char* const kLineHelp[2] = {
    "Opens a pseudo-terminal, prints its path and sends a simulated fluorometer's lines on it; after a\n"
    "hang-up a new path is printed.\n",
    "  --link PATH         a link to the pseudo-terminal, which stays when the line hangs up\n"};
const std::string_view kLineOption = "--link";

std::unique_ptr<InstrumentEnd> PlugIn(const LineOptions& options) {
  return std::make_unique<TerminalEnd>(options.Link);
}

}  // namespace kelp
