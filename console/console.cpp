// SPDX-License-Identifier: GPL-3.0-or-later
#include "console/console.hpp"

#include <iostream>
#include <memory>

#include "console/noting_disk.hpp"
#include "console/watch.hpp"
#include "platform/host.hpp"
#include "record/record.hpp"
#include "script/own_time.hpp"
#include "script/player.hpp"
#include "script/this_machine.hpp"
#include "simulator/simulated_operator.hpp"
#ifdef KELP_SERIAL
#include "console/device_host.hpp"
#endif

namespace kelp {

namespace {

DriveMap MapDrives(const ConsoleOptions& options) {
  const auto data = options.Drives ? std::filesystem::absolute(*options.Drives) : HostDataFolder();
  if (!data.empty()) MakeHostFolder(data);
  DriveMap drives(data);
  for (const auto& [letter, folder] : options.Drive) {
    MakeHostFolder(std::filesystem::absolute(folder));
    drives.SetDrive(letter, std::filesystem::absolute(folder));
  }
  return drives;
}

// Plays the script on a machine and a host, watched where that is asked for.
ScriptResult PlayOn(ScriptedPlatform& machine, Kelp& kelp, ProgramHost& host, const ConsoleOptions& options,
                    const NotingDisk& disk) {
  PutOnThisMachine(machine, host, options);
  Watch watch(kelp, PrintLine);
  if (options.Watch) host.Changed = [&] { watch.Look(); };
  ScriptResult result = ScriptPlayer(host).Play(options.Script, std::cin);
  if (options.Watch) watch.Conclude(disk.Written());
  return result;
}

ScriptResult PlayInOwnTime(const ConsoleOptions& options, NotingDisk& disk) {
  ScriptedPlatform machine(disk);
  const auto kelp = std::make_unique<Kelp>(machine);
  OwnTimeHost host(*kelp, machine);
  SimulatedOperator simulated(options.Seed);
  if (options.Instrument == InstrumentKind::Simulated)
    host.Connect([&](const Kelp& program) { return simulated.NextLine(program); });
  return PlayOn(machine, *kelp, host, options, disk);
}

ScriptResult PlayOnDevice(const ConsoleOptions& options, NotingDisk& disk) {
#ifdef KELP_SERIAL
  DeviceMachine machine(disk, options.Ports);
  const auto kelp = std::make_unique<Kelp>(machine);
  DeviceHost host(*kelp, machine);
  return PlayOn(machine, *kelp, host, options, disk);
#else
  static_cast<void>(disk);
  return {ScriptStatus::Wrong,
          options.Script +
              ":0: this kelp-console was built without the serial port (Qt SerialPort); use "
              "--instrument script or sim"};
#endif
}

}  // namespace

ScriptResult RunConsole(const ConsoleOptions& options) {
  try {
    const DriveMap drives = MapDrives(options);
    if (options.Record) {
      const auto disk = MakeHostDisk(drives);
      for (const std::string& line : ListRecord(*disk, options.Script == "-" ? "" : options.Script))
        PrintLine(line);
      return {};
    }
    // Simulated readings can be had again, so that no line of them has to wait for the disk.
    const bool quick = options.Quick || options.Instrument == InstrumentKind::Simulated;
    const auto hostDisk = MakeHostDisk(drives, quick ? Appends::Quick : Appends::Flushed);
    NotingDisk disk(*hostDisk);
    return options.Instrument == InstrumentKind::Device ? PlayOnDevice(options, disk)
                                                        : PlayInOwnTime(options, disk);
  } catch (const std::exception& error) {
    return {ScriptStatus::Wrong, options.Script + ":0: " + error.what()};
  }
}

}  // namespace kelp
