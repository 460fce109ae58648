// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/windows/serial_device.hpp"

#include <string_view>
#include <system_error>

#include "platform/path_text.hpp"

namespace kelp {

namespace {

// The name of a device among the machine's devices, without which COM10 and above are not found.
std::wstring DeviceName(std::string device) {
  if (device.ends_with(':')) device.pop_back();
  const std::filesystem::path name = PlaceOf(device);
  return (device.starts_with("\\\\") ? L"" : L"\\\\.\\") + name.wstring();
}

BYTE Parity(char letter) {
  constexpr std::string_view letters = "noems";  // in the order of NOPARITY, ODDPARITY and so on
  return static_cast<BYTE>(letters.find(letter));
}

BYTE Stop(StopBits bits) {
  return bits == StopBits::One ? ONESTOPBIT : bits == StopBits::Two ? TWOSTOPBITS : ONE5STOPBITS;
}

// An instrument only talks: no flow control, and no byte has a meaning of its own. Some instruments and most
// adapters talk only while DTR and RTS are up.
void SetUp(DCB& control, const SerialSettings& settings) {
  control.DCBlength = sizeof control;
  control.BaudRate = static_cast<DWORD>(settings.Baud);
  control.ByteSize = static_cast<BYTE>(settings.DataBits);
  control.Parity = Parity(settings.Parity);
  control.StopBits = Stop(settings.Stop);
  control.fBinary = TRUE;
  control.fParity = settings.Parity != 'n';
  control.fOutxCtsFlow = control.fOutxDsrFlow = control.fDsrSensitivity = FALSE;
  control.fOutX = control.fInX = FALSE;
  control.fErrorChar = control.fNull = control.fAbortOnError = FALSE;
  control.fDtrControl = DTR_CONTROL_ENABLE;
  control.fRtsControl = RTS_CONTROL_ENABLE;
}

}  // namespace

std::string WhyNotOpen(const std::string& device, DWORD error) {
  switch (error) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_NAME:
    case ERROR_DEV_NOT_EXIST:
      return device + " does not exist; plug the instrument's cable in or choose another device";
    case ERROR_ACCESS_DENIED:
    case ERROR_SHARING_VIOLATION:
      return device +
             " is in use by another program; close that program (where there is none, this user may not open "
             "it)";
    default:
      return device + " can't be opened (" + std::system_category().message(static_cast<int>(error)) +
             "); pull its adapter and plug it in again, check that it is a serial port, and its settings";
  }
}

std::string OpenSerialDevice(Handle& handle, const std::string& device, const SerialSettings& settings,
                             DWORD access) try {
  handle.Hold(::CreateFileW(DeviceName(device).c_str(), access, 0, nullptr, OPEN_EXISTING,
                            FILE_FLAG_OVERLAPPED, nullptr));
  if (!handle.IsOpen()) return WhyNotOpen(device, ::GetLastError());
  const auto refused = [&](const std::string& why) {
    handle.Close();
    return why;
  };
  DCB control{};
  control.DCBlength = sizeof control;
  if (::GetCommState(handle.get(), &control) == 0)
    return refused(device + " can't be opened (it is no serial port); choose another device");
  SetUp(control, settings);
  if (::SetCommState(handle.get(), &control) == 0) {
    const DWORD error = ::GetLastError();
    return refused(error == ERROR_INVALID_PARAMETER
                       ? device +
                             " does not take these settings; see which the adapter and the instrument know"
                       : WhyNotOpen(device, error));
  }
  COMMTIMEOUTS times{};
  times.ReadTotalTimeoutConstant = times.WriteTotalTimeoutConstant = kReadEvery;
  if (::SetCommTimeouts(handle.get(), &times) == 0) return refused(WhyNotOpen(device, ::GetLastError()));
  ::SetupComm(handle.get(), 64 << 10, 4 << 10);
  return {};
} catch (const std::exception&) {  // letters that no name may hold
  return WhyNotOpen(device, ERROR_INVALID_NAME);
}

}  // namespace kelp
