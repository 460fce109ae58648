// SPDX-License-Identifier: GPL-3.0-or-later
// Program paths and places on the host.
#include "platform/drive_map.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>

#include "platform/error.hpp"
#include "platform/file_name.hpp"
#include "tests/support/temp_folder.hpp"

namespace kelp {

namespace fs = std::filesystem;

// Windows has neither two names that differ by case alone nor links that any user may make.
constexpr bool kIsPosix = fs::path::preferred_separator == '/';

// A place as the machine tells it from others.
std::string Told(const std::optional<fs::path>& place) {
  std::string text = place ? place->generic_string() : "nothing";
  if (!kIsPosix)
    std::transform(text.begin(), text.end(), text.begin(), [](char c) { return std::tolower(c); });
  return text;
}

TEST(DriveMap, FindsNamesInAnyLetterCaseAndKeepsTheCaseOfNewOnes) {
  const TempFolder data;
  for (const char* file :
       {"drive_c/Kelp/kelp.CFG", "drive_c/Kelp/CHL007", "drive_c/Kelp/chl007", "drive_d/x", "stick/Backup/a"})
    data.Write(file, "");
  if (kIsPosix) fs::create_symlink("Kelp", data.Path / "drive_c/Short");
  DriveMap drives(data.Path);
  drives.SetDrive('E', data.Path / "stick");
  drives.SetDrive('f', data.Path / "stick/Backup");
  drives.SetDrive('g', data.Path / "new");

  struct Row {
    const char *asked, *place, *back;
  };
  for (const auto& [asked, place, back] : {
           Row{"c:\\kelp\\KELP.cfg", "drive_c/Kelp/kelp.CFG", "c:\\Kelp\\kelp.CFG"},
           Row{"C:\\kElp\\CHL007", "drive_c/Kelp/CHL007", "c:\\Kelp\\CHL007"},
           Row{kIsPosix ? "c:\\short\\kelp.cfg" : "c:\\kelp\\kelp.cfg", "drive_c/Kelp/kelp.CFG",
               "c:\\Kelp\\kelp.CFG"},
           Row{"c:\\KELP\\New Dir\\Chl.Raw", "drive_c/Kelp/New Dir/Chl.Raw", "c:\\Kelp\\New Dir\\Chl.Raw"},
           Row{"c:kelp\\\\.\\", "drive_c/Kelp", "c:\\Kelp"},
           Row{"e:\\BACKUP\\A", "stick/Backup/a", "f:\\a"},
           Row{"g:\\a\\b", "new/a/b", "g:\\a\\b"},
       }) {
    EXPECT_EQ(Told(drives.HostPath(asked)), Told(data.Path / place)) << asked;
    EXPECT_EQ(Told(drives.ProgramPath(data.Path / place)), Told(back)) << place;
  }
  EXPECT_EQ(drives.ProgramPath(data.Path / "elsewhere"), std::nullopt);
  if (kIsPosix) {
    EXPECT_EQ(drives.ProgramPath(data.Path / "drive_c/a\\b"), std::nullopt);
  }
  EXPECT_EQ(drives.ProgramPath(data.Path / "drive_c/../drive_c/Kelp/./chl007"), "c:\\Kelp\\chl007");
}

TEST(DriveMap, LetsNoPathOutOfItsDrive) {
  const TempFolder data;
  data.Write("drive_c/a/file", "");
  data.Write("secret/file", "");
  data.Write("drive_cc/file", "");
  for (const auto& [target, link] : {std::pair{data.Path / "secret", "drive_c/out"},
                                     {"../../drive_cc/file", "drive_c/a/beside"},
                                     {"nowhere", "drive_c/dangling"}})
    if (kIsPosix) fs::create_symlink(target, data.Path / link);
  const DriveMap drives(data.Path);

  struct Row {
    std::string path;
    const char* reason;
  };
  for (const auto& [path, reason] : {
           Row{"c:\\..\\secret\\file", "\"..\" is no name"},
           Row{"c:\\a/../../secret/file", "holds a / or :"},
           Row{std::string("c:\\a\0\\file", 10), "NUL byte"},
           Row{"c:\\OUT\\file", "leads out of its drive"},
           Row{"c:\\a\\beside", "leads out of its drive"},
           Row{"c:\\dangling", "leads nowhere"},
           Row{"", "has no drive"},
       }) {
    if (!kIsPosix && std::string_view(reason).find("leads") != std::string_view::npos) continue;
    try {
      ADD_FAILURE() << path << " became " << drives.HostPath(path);
    } catch (const FileError& error) {
      EXPECT_NE(error.reason().find(reason), std::string::npos) << path << ": " << error.what();
      EXPECT_TRUE(path.starts_with(error.path()));
    }
  }
}

TEST(DriveMap, KnowsTheNamesThatWindowsCannotHave) {
  struct Row {
    const char *name, *reason;
  };
  for (const auto& [name, reason] :
       {Row{"nul", "the name of a device"}, Row{"Con.cfg", "the name of a device"},
        Row{"com3 .txt", "the name of a device"}, Row{"LPT\u00b9", "the name of a device"},
        Row{"chl007.", "a dot or a blank"}, Row{"chl007 ", "a dot or a blank"}, Row{"a?b", "holds a ?"},
        Row{"a\x01"
            "b",
            "control character"}})
    EXPECT_NE(WhyNoWindowsName(name).find(reason), std::string::npos) << name;
  for (const char* name : {"console", "com10", "lpt", "null.cfg", ".hidden", "a.b.c", "\u00c4rger"})
    EXPECT_EQ(WhyNoWindowsName(name), "") << name;
}

}  // namespace kelp
