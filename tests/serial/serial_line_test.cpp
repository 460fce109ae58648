// SPDX-License-Identifier: GPL-3.0-or-later
// The serial line on a real pseudo-terminal.
#include "platform/serial_line.hpp"

#include <fcntl.h>
#include <grp.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>
#include <atomic>
#include <ctime>
#include <optional>
#include <thread>

namespace kelp {

namespace {

// The instrument's end of a line; gone with its scope, as when the cable is pulled.
struct Instrument {
  int fd = ::posix_openpt(O_RDWR | O_NOCTTY);
  std::string Device;

  Instrument() {
    ::grantpt(fd);
    ::unlockpt(fd);
    Device = ::ptsname(fd);
  }
  Instrument(const Instrument&) = delete;
  Instrument& operator=(const Instrument&) = delete;
  ~Instrument() { ::close(fd); }
  void Send(std::string_view text) const {
    ASSERT_EQ(::write(fd, text.data(), text.size()), static_cast<ssize_t>(text.size()));
  }
};

// Takes bytes until `size` of them came, or two seconds passed.
std::string Take(SerialLine& line, std::size_t size) {
  std::string text;
  QElapsedTimer timer;
  for (timer.start(); text.size() < size && timer.elapsed() < 2000;)
    if (line.WaitForBytes(100)) text += line.ReadAll();
  return text;
}

void RunEvents(int milliseconds) {
  QEventLoop loop;
  QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
  loop.exec();
}

double ProcessorSeconds() { return static_cast<double>(std::clock()) / CLOCKS_PER_SEC; }

}  // namespace

TEST(SerialLine, BringsEveryByteAsSoonAsItComes) {
  std::string all;
  for (int i = 0; i < 256; ++i) all += static_cast<char>(i);
  // A pseudo-terminal has no parity and always 8 bits; real ports have.
  for (const char* settings : {"9600,n,8,1", "4800,E,7,2", "115200, o, 8, 1.5"}) {
    const Instrument instrument;
    SerialLine line;
    ASSERT_EQ(line.Open(instrument.Device, settings), "");
    EXPECT_EQ(line.BytesWaiting(), 0U);
    instrument.Send("\r\nA =  12.3");
    EXPECT_EQ(Take(line, 11), "\r\nA =  12.3");
    instrument.Send("45 (RAW)");
    instrument.Send(all);
    EXPECT_EQ(Take(line, 8 + 256), "45 (RAW)" + all) << settings;

    std::string heard;
    line.OnBytes = [&] { heard += line.ReadAll(); };
    instrument.Send("from the loop");
    for (int i = 0; i < 100 && heard.size() < 13; ++i) RunEvents(20);
    EXPECT_EQ(heard, "from the loop");
  }
}

TEST(SerialLine, AHangUpClosesItWithoutASpinAndItOpensAgain) {
  SerialLine line;
  for (const bool inLoop : {true, false, true}) {
    std::optional<Instrument> instrument(std::in_place);
    ASSERT_EQ(line.Open(instrument->Device, "9600,n,8,1"), "");
    instrument->Send("A =");
    EXPECT_EQ(Take(line, 3), "A =");
    instrument.reset();
    const double before = ProcessorSeconds();
    QElapsedTimer timer;
    timer.start();
    if (inLoop) RunEvents(200);
    while (timer.elapsed() < 200) EXPECT_FALSE(line.WaitForBytes(20));
    EXPECT_LT(ProcessorSeconds() - before, 0.05);
    EXPECT_FALSE(line.IsOpen());
  }
}

TEST(SerialLine, KeepsWholeLinesOfTheNewestWhenNobodyTakesThem) {
  const Instrument instrument;
  SerialLine line;
  ASSERT_EQ(line.Open(instrument.Device, "9600,n,8,1"), "");
  const std::string reading = "\r\nA =2.3456 (RAW)";
  std::string sent;
  while (sent.size() < (1U << 20)) sent += reading;
  std::atomic<bool> done = false;
  std::thread writer([&] {
    for (std::size_t at = 0; at < sent.size(); at += 1024) instrument.Send(sent.substr(at, 1024));
    done = true;
  });
  std::size_t most = 0;
  line.OnBytes = [&] { most = std::max(most, line.BytesWaiting()); };
  while (!done) RunEvents(20);
  writer.join();
  RunEvents(100);
  EXPECT_LE(most, 64U << 10);
  EXPECT_GT(most, 60U << 10);
  const std::string kept = line.ReadAll();
  EXPECT_TRUE(kept.starts_with("A =2.3456 (RAW)"));
  EXPECT_TRUE(kept.ends_with(reading));
}

TEST(SerialLine, SaysWhyADeviceCannotBeOpened) {
  const Instrument instrument;
  SerialLine other, line;
  ASSERT_EQ(other.Open(instrument.Device, "9600,n,8,1"), "");
  const std::string missing = "/dev/kelp-missing";
  for (const auto& [device, reason] : std::initializer_list<std::pair<std::string, std::string>>{
           {missing, missing + " does not exist; plug"},
           {instrument.Device, instrument.Device + " is in use by another program"},
           {"/dev/null", "/dev/null can't be opened"},
           {"", "no device; choose one"}})
    EXPECT_NE(line.Open(device, "9600,n,8,1").find(reason), std::string::npos) << device;
  for (const char* settings :
       {"", "9600,n,8", "9600,x,8,1", "9600,n,9,1", "-1,n,8,1", "9600,n,8,3", "9600,n,8,1,x"})
    EXPECT_NE(line.Open(missing, settings).find("as in 9600,n,8,1"), std::string::npos) << settings;
  EXPECT_FALSE(line.IsOpen());
}

// The superuser may open anything: the check runs as nobody, in a process of its own.
TEST(SerialLine, NamesTheGroupThatADeviceNeeds) {
  const group* dialout = ::getgrnam("dialout");
  if (::getuid() != 0 || dialout == nullptr) GTEST_SKIP() << "needs a superuser to give a device away";
  const Instrument instrument;
  ASSERT_EQ(::chown(instrument.Device.c_str(), 0, dialout->gr_gid), 0);
  ASSERT_EQ(::chmod(instrument.Device.c_str(), 0660), 0);
  const pid_t child = ::fork();
  if (child == 0) {
    if (::setgroups(0, nullptr) != 0 || ::setgid(65534) != 0 || ::setuid(65534) != 0) ::_exit(100);
    const std::string said = SerialLine().Open(instrument.Device, "9600,n,8,1");
    ::_exit(said.find("needs the group dialout (sudo usermod -aG dialout $USER") != said.npos ? 0 : 1);
  }
  int status = 0;
  ASSERT_EQ(::waitpid(child, &status, 0), child);
  EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << status;
}

}  // namespace kelp
