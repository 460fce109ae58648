// SPDX-License-Identifier: GPL-3.0-or-later
// What a console takes from the last byte of a line to its value, and to save a station of 100 samples, as
// another program sees it: so that a console under Wine can be set beside that of Linux. console_figures LINK
// DEVICE CONSOLE [ARGUMENTS]: the console opens the device of LINK by the name DEVICE.
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <iostream>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "acquire/instrument_line.hpp"
#include "console/posix/pseudo_terminal.hpp"

namespace {

using Clock = std::chrono::steady_clock;
constexpr int kRounds = 200;
constexpr int kSaves = 20;

// A console that takes commands one by one and answers each with a line.
class Console {
 public:
  explicit Console(const std::vector<std::string>& words) {
    int in[2], out[2];
    if (::pipe(in) != 0 || ::pipe(out) != 0) throw std::runtime_error("no pipe");
    child_ = ::fork();
    if (child_ == 0) {
      ::dup2(in[0], 0);
      ::dup2(out[1], 1);
      for (const int fd : {in[0], in[1], out[0], out[1]}) ::close(fd);
      std::vector<char*> arguments;
      for (const std::string& word : words) arguments.push_back(const_cast<char*>(word.c_str()));
      arguments.push_back(nullptr);
      ::execv(arguments[0], arguments.data());
      ::_exit(127);
    }
    ::close(in[0]);
    ::close(out[1]);
    input_ = ::fdopen(in[1], "w");
    output_ = ::fdopen(out[0], "r");
  }
  ~Console() {
    std::fclose(input_);
    std::fclose(output_);
    ::waitpid(child_, nullptr, 0);
  }
  Console(const Console&) = delete;
  Console& operator=(const Console&) = delete;

  void Tell(const std::string& script) {
    std::fputs(script.c_str(), input_);
    std::fflush(input_);
  }
  // The value of the next line "NAME = VALUE" of that name.
  std::string Hear(const std::string& name) {
    char line[4096];
    while (std::fgets(line, sizeof line, output_) != nullptr) {
      std::string text(line);
      text.erase(text.find_last_not_of("\r\n") + 1);
      if (text.starts_with(name + " = ")) return text.substr(name.size() + 3);
    }
    throw std::runtime_error("the console ended before it showed " + name);
  }

 private:
  pid_t child_ = 0;
  std::FILE* input_ = nullptr;
  std::FILE* output_ = nullptr;
};

double Since(Clock::time_point start) {
  return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

void Print(const char* what, std::vector<double>& times) {
  std::sort(times.begin(), times.end());
  std::printf("%-40s median %8.3f ms, best %8.3f ms, worst %8.3f ms\n", what, times[times.size() / 2],
              times.front(), times.back());
}

const char* const kStation =
    "answer No\nanswer OK\nclick frmMain.Command1(0)\nanswer Yes\nclick frmLogin.cmdOK\n"
    "type frmCreateBase.Text1(2) 100\nclick frmCreateBase.cmdCreateBase(0)\n";

void Readings(Console& console, const kelp::PseudoTerminal& line) {
  console.Tell(std::string(kStation) +
               "click frmAcquire.Command1\nclick frmAcquire.Command1\nshow run.SampNum\n");
  console.Hear("run.SampNum");
  std::vector<double> times;
  for (int i = 0; i < kRounds; ++i) {
    const std::string value = "0." + std::to_string(101 + i);
    console.Tell("wait 10 frmAcquire.txtStats(1) " + value + "\nshow frmAcquire.txtStats(1)\n");
    std::this_thread::sleep_for(std::chrono::milliseconds(30));
    const auto start = Clock::now();
    line.Send(kelp::InstrumentLine(value));
    console.Hear("frmAcquire.txtStats(1)");
    times.push_back(Since(start));
  }
  Print("last byte to the value on standard output", times);
}

void Saves(Console& console) {
  console.Tell(std::string(kStation) + "show run.SampNum\n");
  console.Hear("run.SampNum");
  std::vector<double> times;
  for (int i = 0; i < kSaves; ++i) {
    const auto start = Clock::now();
    console.Tell("answer Yes\nkey frmAcquire F2\nshow run.SampNum\n");
    console.Hear("run.SampNum");
    times.push_back(Since(start));
  }
  Print("saving a station of 100 samples", times);
}

}  // namespace

int main(int argc, char** argv) try {
  if (argc < 4) throw std::runtime_error("usage: console_figures LINK DEVICE CONSOLE [ARGUMENTS]");
  namespace fs = std::filesystem;
  const fs::path link = argv[1];
  const kelp::PseudoTerminal line;
  fs::remove(link);
  fs::create_symlink(line.Path(), link);
  const fs::path drives = link.parent_path() / "figures";
  for (const bool reading : {true, false}) {
    fs::remove_all(drives);
    std::vector<std::string> words(argv + 3, argv + argc);
    for (const char* word : {"--drives", drives.c_str()}) words.emplace_back(word);
    if (reading)
      for (const std::string& word :
           {std::string("--quick"), "--port=1=" + std::string(argv[2]), std::string("--instrument=device")})
        words.push_back(word);
    Console console(words);
    if (reading)
      Readings(console, line);
    else
      Saves(console);
  }
  fs::remove_all(drives);
  fs::remove(link);
  return 0;
} catch (const std::exception& error) {
  std::cerr << "console_figures: " << error.what() << std::endl;
  return 1;
}
