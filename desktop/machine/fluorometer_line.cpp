// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/machine/fluorometer_line.hpp"

#include <utility>

namespace kelp {

FluorometerLine::FluorometerLine(std::function<std::string(int)> device,
                                 std::function<std::string()> simulated)
    : device_(std::move(device)), simulated_(std::move(simulated)) {
  serial_.OnBytes = [this] { OnBytes(); };
  second_.setInterval(1000);
  QObject::connect(&second_, &QTimer::timeout, [this] {
    waiting_ += simulated_();
    OnBytes();
  });
}

void FluorometerLine::Simulate(bool simulate) {
  if (simulate == simulate_) return;
  Close();
  simulate_ = simulate;
}

std::string FluorometerLine::Open(int number, const std::string& settings) {
  Close();
  wanted_ = true;
  if (simulate_) {
    second_.start();
    return {};
  }
  const std::string device = device_(number);
  name_ = "Port " + std::to_string(number) + " (" + device + ")";
  return serial_.Open(device, settings);
}

void FluorometerLine::Close() {
  wanted_ = false;
  second_.stop();
  waiting_.clear();
  serial_.Close();
}

std::size_t FluorometerLine::BytesWaiting() const {
  return simulate_ ? waiting_.size() : serial_.BytesWaiting();
}

std::string FluorometerLine::ReadAll() {
  return simulate_ ? std::exchange(waiting_, std::string()) : serial_.ReadAll();
}

std::string FluorometerLine::State() const {
  if (simulate_) return "Simulated fluorometer";
  if (!wanted_) return "Port closed";
  return name_ + (IsOpen() ? " open" : " lost");
}

}  // namespace kelp
