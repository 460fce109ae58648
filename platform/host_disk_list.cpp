#include <algorithm>

#include "platform/error.hpp"
#include "platform/host_disk.hpp"

namespace kelp {

std::vector<std::string> HostDisk::FilesIn(const std::string& folder) {
  namespace fs = std::filesystem;
  if (!IsFolder(folder)) return {};
  std::vector<std::string> names;
  std::error_code error;
  for (fs::directory_iterator entry(drives_.HostPath(folder), error), end; !error && entry != end;
       entry.increment(error)) {
    std::error_code unknown;
    const std::u8string name = entry->path().filename().u8string();
    if (entry->is_regular_file(unknown)) names.emplace_back(name.begin(), name.end());
  }
  if (error) throw FileError(folder, "can't be listed: " + error.message());
  std::sort(names.begin(), names.end());
  return names;
}

}  // namespace kelp
