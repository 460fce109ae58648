#include "console/console.hpp"

#include <iostream>
#include <memory>

#include "console/noting_disk.hpp"
#include "console/script_own_time.hpp"
#include "console/script_player.hpp"
#include "console/simulated_operator.hpp"
#include "console/watch.hpp"
#include "platform/host.hpp"

namespace kelp {

namespace {

void PrintLine(const std::string& line) { std::cout << line << std::endl; }

DriveMap MapDrives(const ConsoleOptions& options) {
  const auto data = options.Drives ? std::filesystem::absolute(*options.Drives) : HostDataFolder();
  std::filesystem::create_directories(data);
  DriveMap drives(data);
  for (const auto& [letter, folder] : options.Drive) {
    std::filesystem::create_directories(folder);
    drives.SetDrive(letter, std::filesystem::absolute(folder));
  }
  return drives;
}

ScriptResult PlayInOwnTime(const ConsoleOptions& options, NotingDisk& disk) {
  ScriptedPlatform machine(disk);
  machine.Echo = PrintLine;
  machine.SetClock(options.Clock.value_or(HostNow()));
  const auto kelp = std::make_unique<Kelp>(machine);
  OwnTimeHost host(*kelp, machine);
  host.Printer = PrintLine;
  SimulatedOperator simulated(options.Seed);
  if (options.Instrument == InstrumentKind::Simulated)
    host.Connect([&](const Kelp& program) { return simulated.NextLine(program); });
  Watch watch(*kelp, PrintLine);
  if (options.Watch) host.Changed = [&] { watch.Look(); };
  const ScriptResult result = ScriptPlayer(host).Play(options.Script, std::cin);
  if (options.Watch) watch.Conclude(disk.Written());
  return result;
}

}  // namespace

ScriptResult RunConsole(const ConsoleOptions& options) {
  try {
    const DriveMap drives = MapDrives(options);
    const auto hostDisk = MakeHostDisk(drives);
    NotingDisk disk(*hostDisk);
    if (options.Instrument != InstrumentKind::Device) return PlayInOwnTime(options, disk);
    return {ScriptStatus::Wrong, options.Script + ":0: this kelp-console was built without the serial port"};
  } catch (const std::exception& error) {
    return {ScriptStatus::Wrong, options.Script + ":0: " + error.what()};
  }
}

}  // namespace kelp
