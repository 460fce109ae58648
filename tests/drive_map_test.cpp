// Program paths and places on the host.
#include "platform/drive_map.hpp"

#include <gtest/gtest.h>

#include "platform/error.hpp"
#include "tests/support/temp_folder.hpp"

namespace kelp {

namespace fs = std::filesystem;

TEST(DriveMap, FindsNamesInAnyLetterCaseAndKeepsTheCaseOfNewOnes) {
  const TempFolder data;
  for (const char* file :
       {"drive_c/Kelp/kelp.CFG", "drive_c/Kelp/CHL007", "drive_c/Kelp/chl007", "drive_d/x", "stick/Backup/a"})
    data.Write(file, "");
  fs::create_symlink("Kelp", data.Path / "drive_c/Short");
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
           Row{"c:\\short\\kelp.cfg", "drive_c/Kelp/kelp.CFG", "c:\\Kelp\\kelp.CFG"},
           Row{"c:\\KELP\\New Dir\\Chl.Raw", "drive_c/Kelp/New Dir/Chl.Raw", "c:\\Kelp\\New Dir\\Chl.Raw"},
           Row{"c:kelp\\\\.\\", "drive_c/Kelp", "c:\\Kelp"},
           Row{"e:\\BACKUP\\A", "stick/Backup/a", "f:\\a"},
           Row{"g:\\a\\b", "new/a/b", "g:\\a\\b"},
       }) {
    EXPECT_EQ(drives.HostPath(asked), data.Path / place) << asked;
    EXPECT_EQ(drives.ProgramPath(data.Path / place), back) << place;
  }
  EXPECT_EQ(drives.ProgramPath(data.Path / "elsewhere"), std::nullopt);
  EXPECT_EQ(drives.ProgramPath(data.Path / "drive_c/a\\b"), std::nullopt);
  EXPECT_EQ(drives.ProgramPath(data.Path / "drive_c/../drive_c/Kelp/./chl007"), "c:\\Kelp\\chl007");
}

TEST(DriveMap, LetsNoPathOutOfItsDrive) {
  const TempFolder data;
  data.Write("drive_c/a/file", "");
  data.Write("secret/file", "");
  data.Write("drive_cc/file", "");
  fs::create_symlink(data.Path / "secret", data.Path / "drive_c/out");
  fs::create_symlink("../../drive_cc/file", data.Path / "drive_c/a/beside");
  fs::create_symlink("nowhere", data.Path / "drive_c/dangling");
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
    try {
      ADD_FAILURE() << path << " became " << drives.HostPath(path);
    } catch (const FileError& error) {
      EXPECT_NE(error.reason().find(reason), std::string::npos) << path << ": " << error.what();
      EXPECT_TRUE(path.starts_with(error.path()));
    }
  }
}

}  // namespace kelp
