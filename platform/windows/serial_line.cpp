// SPDX-License-Identifier: GPL-3.0-or-later
// The serial line over Win32, with one read on the way at any time.
#include "platform/serial_line.hpp"

#include <algorithm>
#include <atomic>
#include <optional>

#include "platform/path_text.hpp"
#include "platform/serial_settings.hpp"
#include "platform/windows/handle.hpp"
#include "platform/windows/serial_device.hpp"

namespace kelp {

namespace {

constexpr UINT kBytesCame = WM_APP;
constexpr std::size_t kAtOnce = 64 << 10;  // then the program has its turn
constexpr DWORD kToCancel = 1000;          // milliseconds that a driver has to give a read back

// A read that the driver works on. It is complete when its event is set: with the first byte that comes.
struct Reading {
  OVERLAPPED Overlapped = {};
  Handle Done = Handle(::CreateEventW(nullptr, TRUE, FALSE, nullptr));
  char Block[4096] = {};

  // Starts to read so many bytes. False when the line is lost.
  bool Start(const Handle& device, DWORD size) {
    Overlapped = {};
    Overlapped.hEvent = Done.get();
    return ::ReadFile(device.get(), Block, size, nullptr, &Overlapped) != 0 ||
           ::GetLastError() == ERROR_IO_PENDING;
  }

  // The bytes that it brought, none when its time was up; nothing when the line is lost.
  std::optional<DWORD> Result(const Handle& device, bool wait) {
    DWORD count = 0;
    if (::GetOverlappedResult(device.get(), &Overlapped, &count, wait) != 0) return count;
    return ::GetLastError() == WAIT_TIMEOUT ? std::optional<DWORD>(0) : std::nullopt;
  }
};

}  // namespace

struct SerialLine::Port {
  explicit Port(SerialLine& line) : Line(line) {}
  SerialLine& Line;
  Handle Device = {};
  std::unique_ptr<Reading> Pending = {};
  ULONGLONG Asked = 0;
  HWND Window = nullptr;  ///< wakes the message loop of this thread
  HANDLE Waiter = nullptr;
  std::atomic<bool> Posted = false;

  void MakeWindow();
  bool Ask();
  bool TakeOne(std::size_t& taken);
  void Take();
  void StopWaiting();
  void Close();

  static void CALLBACK Wake(void* port, BOOLEAN /*timedOut*/);
  static LRESULT CALLBACK Hear(HWND window, UINT message, WPARAM word, LPARAM more);
};

// Runs in a thread of the system's, which does no more than say that there is something.
void CALLBACK SerialLine::Port::Wake(void* port, BOOLEAN /*timedOut*/) {
  auto* self = static_cast<Port*>(port);
  if (!self->Posted.exchange(true)) ::PostMessageW(self->Window, kBytesCame, 0, 0);
}

LRESULT CALLBACK SerialLine::Port::Hear(HWND window, UINT message, WPARAM word, LPARAM more) {
  if (message != kBytesCame) return ::DefWindowProcW(window, message, word, more);
  auto* self = reinterpret_cast<Port*>(::GetWindowLongPtrW(window, GWLP_USERDATA));
  self->Posted = false;
  self->Take();
  return 0;
}

// A window that nobody sees: its messages come through any message loop, also while a window is dragged.
void SerialLine::Port::MakeWindow() {
  static const wchar_t* const name = L"KelpSerialLine";
  WNDCLASSW type{};
  type.lpfnWndProc = Hear;
  type.hInstance = ::GetModuleHandleW(nullptr);
  type.lpszClassName = name;
  ::RegisterClassW(&type);
  Window = ::CreateWindowExW(0, name, name, 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, type.hInstance, nullptr);
  ::SetWindowLongPtrW(Window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

// Waits for the next byte. False when the line is lost.
bool SerialLine::Port::Ask() {
  StopWaiting();
  Asked = ::GetTickCount64();
  return Pending->Start(Device, 1) &&
         ::RegisterWaitForSingleObject(&Waiter, Pending->Done.get(), Wake, this, INFINITE,
                                       WT_EXECUTEONLYONCE | WT_EXECUTEINWAITTHREAD) != 0;
}

// Takes the byte that came and those behind it, and waits for more. False when the line is lost.
bool SerialLine::Port::TakeOne(std::size_t& taken) {
  std::optional<DWORD> count = Pending->Result(Device, false);
  // A read ends without a byte when its time is up. One that ends so at once has no instrument any more.
  if (!count || (*count == 0 && ::GetTickCount64() - Asked < kReadEvery / 2)) return false;
  COMSTAT state{};
  while (*count > 0) {
    Line.Keep(Pending->Block, *count);
    taken += *count;
    if (taken >= kAtOnce || ::ClearCommError(Device.get(), nullptr, &state) == 0 || state.cbInQue == 0) break;
    if (!Pending->Start(Device, std::min<DWORD>(state.cbInQue, sizeof Pending->Block))) return false;
    count = Pending->Result(Device, true);
    if (!count) return false;
  }
  return Ask();
}

void SerialLine::Port::Take() {
  if (!Device.IsOpen()) return;
  std::size_t taken = 0;
  bool well = true;
  while (well && taken < kAtOnce && ::WaitForSingleObject(Pending->Done.get(), 0) == WAIT_OBJECT_0)
    well = TakeOne(taken);
  if (!well) Line.Close();
  if ((taken > 0 || !well) && Line.OnBytes) Line.OnBytes();
}

void SerialLine::Port::StopWaiting() {
  if (Waiter != nullptr) ::UnregisterWaitEx(Waiter, INVALID_HANDLE_VALUE);
  Waiter = nullptr;
}

void SerialLine::Port::Close() {
  StopWaiting();
  if (!Device.IsOpen()) return;
  ::CancelIoEx(Device.get(), &Pending->Overlapped);
  // The driver of an adapter that was pulled may hold on to the read: what it writes to then must stay.
  if (::WaitForSingleObject(Pending->Done.get(), kToCancel) != WAIT_OBJECT_0)
    static_cast<void>(Pending.release());
  Device.Close();
}

SerialLine::SerialLine() : port_(std::make_unique<Port>(*this)) { port_->MakeWindow(); }

SerialLine::~SerialLine() {
  Close();
  ::DestroyWindow(port_->Window);
}

std::string SerialLine::Open(const std::string& device, const std::string& settings) {
  Close();
  if (device.empty()) return "this port number has no device; choose one";
  const auto parsed = ReadSerialSettings(settings);
  if (!parsed) return WrongSerialSettings(device, settings);
  std::string why = OpenSerialDevice(port_->Device, device, *parsed, GENERIC_READ);
  if (!why.empty()) return why;
  port_->Pending = std::make_unique<Reading>();
  if (port_->Ask()) return {};
  why = WhyNotOpen(device, ::GetLastError());
  Close();
  return why;
}

void SerialLine::Close() {
  port_->Close();
  waiting_.clear();
}

bool SerialLine::IsOpen() const { return port_->Device.IsOpen(); }

bool SerialLine::WaitForBytes(int milliseconds) {
  if (!waiting_.empty()) return true;
  if (!IsOpen())
    ::Sleep(static_cast<DWORD>(milliseconds));
  else if (::WaitForSingleObject(port_->Pending->Done.get(), static_cast<DWORD>(milliseconds)) ==
           WAIT_OBJECT_0)
    port_->Take();
  return !waiting_.empty();
}

std::vector<std::string> SerialDevices() {
  std::vector<std::string> devices;
  HKEY key = nullptr;
  if (::RegOpenKeyExW(HKEY_LOCAL_MACHINE, L"HARDWARE\\DEVICEMAP\\SERIALCOMM", 0, KEY_READ, &key) != 0)
    return devices;
  wchar_t name[256];
  wchar_t device[256];
  for (DWORD i = 0;; ++i) {
    DWORD nameLength = std::size(name), bytes = sizeof device - sizeof *device, type = 0;
    const LSTATUS status =
        ::RegEnumValueW(key, i, name, &nameLength, nullptr, &type, reinterpret_cast<BYTE*>(device), &bytes);
    if (status == ERROR_NO_MORE_ITEMS) break;
    if (status != 0 || type != REG_SZ) continue;
    device[bytes / sizeof *device] = L'\0';
    devices.push_back(TextOf(device));
  }
  ::RegCloseKey(key);
  // COM3 stands before COM10.
  std::sort(devices.begin(), devices.end(), [](const std::string& a, const std::string& b) {
    return a.size() != b.size() ? a.size() < b.size() : a < b;
  });
  return devices;
}

}  // namespace kelp
