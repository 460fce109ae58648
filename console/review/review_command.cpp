// SPDX-License-Identifier: GPL-3.0-or-later
#include "console/review/review_command.hpp"

#include <fstream>
#include <memory>

#include "console/review/review_options.hpp"
#include "core/config.hpp"
#include "core/text.hpp"
#include "platform/error.hpp"
#include "platform/host.hpp"
#include "platform/scripted.hpp"
#include "review/final_files.hpp"
#include "review/html_review.hpp"
#include "review/text_review.hpp"

namespace kelp {

namespace {

namespace fs = std::filesystem;

constexpr int kDone = 0;
constexpr int kWrong = 2;

// Drives for what the command reads and writes, wherever that lies on this machine.
constexpr char kFolderDrive = 'r';
constexpr char kCsvDrive = 'w';

fs::path FolderOf(const fs::path& file) { return fs::absolute(file).parent_path(); }

// The configuration of these drives, or the default one where there is none yet.
Limits ConfiguredLimits(Disk& disk) {
  ScriptedPlatform machine(disk);
  const auto kelp = std::make_unique<Kelp>(machine);
  if (disk.Exists(kConfigPath))
    LoadConfig(*kelp);
  else
    SetDefaultConfig(kelp->run);
  return LimitsOf(kelp->run);
}

std::vector<const Station*> ShownStations(const Review& review, const ReviewOptions& options) {
  std::vector<const Station*> shown;
  for (const std::string& procNum : options.Stations) {
    shown.push_back(FindStation(review, procNum));
    if (shown.back() == nullptr)
      throw RunTimeError(ErrorKind::InvalidCall, "--station " + procNum +
                                                     ": the folder has no saved station of that "
                                                     "number of cruise " +
                                                     review.Cruise.Name);
  }
  if (options.Stations.empty())
    for (const Station& station : review.Stations) shown.push_back(&station);
  return shown;
}

// Beside the file first: a full disk leaves the page of before.
void WriteHtml(const fs::path& file, const Review& review, const FinalData& data,
               const std::vector<const Station*>& shown) {
  fs::path half = file;
  half += ".part";
  std::ofstream page(half, std::ios::binary | std::ios::trunc);
  WriteHtmlReview(review, data, shown, [&](std::string_view text) {
    page.write(text.data(), static_cast<std::streamsize>(text.size()));
  });
  page.close();
  std::error_code error;
  if (page) fs::rename(half, file, error);
  if (page && !error) return;
  std::error_code ignored;
  fs::remove(half, ignored);
  throw FileError(file.string(), page ? "can't be written: " + error.message()
                                      : "can't be written; is there such a folder, and room on its disk?");
}

void ReviewFolder(const ReviewOptions& options, std::ostream& out, std::ostream& err) {
  DriveMap drives(options.Drives ? fs::absolute(*options.Drives) : HostDataFolder());
  if (!fs::is_directory(options.Folder)) throw FileError(options.Folder, "is no folder");
  drives.SetDrive(kFolderDrive, fs::absolute(options.Folder));
  if (options.Csv) drives.SetDrive(kCsvDrive, FolderOf(*options.Csv));
  const auto disk = MakeHostDisk(drives, Appends::Flushed);
  const std::string folder = {kFolderDrive, ':', '\\'};
  Cruise cruise = ReadCruise(*disk, folder, options.Cruise);
  for (LeftOut& left : cruise.Left) left.Reason = Replaced(left.Reason, folder, "");
  const Review review = MakeReview(std::move(cruise), ConfiguredLimits(*disk));
  const std::vector<const Station*> shown = ShownStations(review, options);
  const FinalData data = MakeFinalData(review.Cruise, options.Post);
  if (review.Stations.empty()) err << "kelp-console: " << options.Folder << " holds no saved station\n";
  if (options.Html) WriteHtml(*options.Html, review, data, shown);
  if (options.Csv) {
    Cruise named = review.Cruise;
    named.Folder = options.Folder;
    WriteFinalFiles(*disk, std::string{kCsvDrive, ':', '\\'} + options.Csv->filename().string(), named, data,
                    options.Post);
  }
  if (options.Html || options.Csv) {
    for (const LeftOut& left : data.Left) err << "left out: " << left.File << ": " << left.Reason << "\n";
    return;
  }
  for (const std::string& line : TextReview(review, data, shown)) out << line << "\n";
}

}  // namespace

int RunReview(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err) {
  const ReviewOptions options = ReadReviewOptions(arguments);
  if (options.Help) {
    out << kReviewHelp;
    return kDone;
  }
  try {
    if (!options.Problem.empty()) throw RunTimeError(ErrorKind::InvalidCall, options.Problem);
    ReviewFolder(options, out, err);
    return kDone;
  } catch (const std::exception& error) {
    err << "kelp-console: " << error.what() << std::endl;
    return kWrong;
  }
}

}  // namespace kelp
