// SPDX-License-Identifier: GPL-3.0-or-later
// The serial line on a port of Windows at whose other end a fluorometer sends some lines a second, as
// `kelp-fluorometer` does. KELP_TEST_PORT names the port; without it there is nothing to hear.
#include "platform/serial_line.hpp"

#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <cstdlib>

namespace kelp {

namespace {

const char* Port() {
  const char* port = std::getenv("KELP_TEST_PORT");
  return port == nullptr || *port == '\0' ? nullptr : port;
}

// Runs a message loop as a window has one, until it is done or two seconds passed.
template <class Done>
bool MessagesUntil(const Done& done) {
  const ULONGLONG end = ::GetTickCount64() + 2000;
  while (!done() && ::GetTickCount64() < end) {
    ::MsgWaitForMultipleObjects(0, nullptr, FALSE, 100, QS_ALLINPUT);
    for (MSG message; ::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != 0;) ::DispatchMessageW(&message);
  }
  return done();
}

}  // namespace

TEST(WindowsSerialLine, WakesAWaitAndAMessageLoopWithEveryByte) {
  if (Port() == nullptr) GTEST_SKIP() << "KELP_TEST_PORT names no port";
  SerialLine line;
  for (const char* settings : {"9600,n,8,1", "9600,E,7,2"}) {
    ASSERT_EQ(line.Open(Port(), settings), "");
    std::string text;
    for (int i = 0; i < 40 && std::count(text.begin(), text.end(), ')') < 3; ++i)
      if (line.WaitForBytes(200)) text += line.ReadAll();
    EXPECT_GE(std::count(text.begin(), text.end(), ')'), 3) << text;
    EXPECT_NE(text.find("\r\nA =", 1), std::string::npos) << text;

    std::string heard;
    line.OnBytes = [&] { heard += line.ReadAll(); };
    EXPECT_TRUE(MessagesUntil([&] { return std::count(heard.begin(), heard.end(), ')') >= 3; })) << heard;
    line.OnBytes = nullptr;
    line.Close();
    EXPECT_FALSE(line.IsOpen());
  }
}

TEST(WindowsSerialLine, IsListedAndSaysWhyItCannotBeOpened) {
  if (Port() == nullptr) GTEST_SKIP() << "KELP_TEST_PORT names no port";
  const auto devices = SerialDevices();
  EXPECT_NE(std::find(devices.begin(), devices.end(), Port()), devices.end());
  SerialLine line;
  for (const auto& [device, reason] :
       std::initializer_list<std::pair<std::string, std::string>>{{"COM77", "COM77 does not exist; plug"},
                                                                  {"nul", "it is no serial port"},
                                                                  {"\xff", "does not exist"},
                                                                  {"", "no device; choose one"}})
    EXPECT_NE(line.Open(device, "9600,n,8,1").find(reason), std::string::npos)
        << device << ": " << line.Open(device, "9600,n,8,1");
  EXPECT_NE(line.Open(Port(), "9600,n,8,3").find("as in 9600,n,8,1"), std::string::npos);
  EXPECT_FALSE(line.IsOpen());
  const DWORD start = ::GetTickCount();
  EXPECT_FALSE(line.WaitForBytes(100));
  EXPECT_GE(::GetTickCount() - start, 80U) << "a loop around it would spin";
}

}  // namespace kelp
