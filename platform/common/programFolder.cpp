#include "platform/common/programFolder.h"

#include <system_error>

namespace lorelin {
namespace {

namespace fs = std::filesystem;

constexpr const char* kScripts = "scripts";
constexpr const char* kScriptIcon = "vts.ico";

void CopyWhole(const fs::path& from, const fs::path& to) {
  fs::path unfinished = to;
  unfinished += ".neu";
  std::error_code error;
  fs::create_directories(to.parent_path(), error);
  if (fs::copy_file(from, unfinished, fs::copy_options::overwrite_existing, error)) {
    fs::rename(unfinished, to, error);
  }
}

void Seed(const fs::path& folder, const fs::path& shared, const char* name) {
  std::error_code error;
  for (fs::recursive_directory_iterator entry(shared / name, error), end; !error && entry != end;
       entry.increment(error)) {
    const fs::path copy = folder / entry->path().lexically_relative(shared);
    std::error_code ignored;
    if (entry->is_regular_file(ignored) && !fs::exists(copy, ignored)) CopyWhole(entry->path(), copy);
  }
}

}  // namespace

void SeedProgramFolder(const fs::path& folder, const fs::path& shared) {
  std::error_code error;
  Seed(folder, shared, kPagesFolder);
  if (fs::exists(shared / kScriptIcon, error) && !fs::exists(folder / kScriptIcon, error)) {
    CopyWhole(shared / kScriptIcon, folder / kScriptIcon);
  }
  if (!fs::exists(folder / kScripts, error)) Seed(folder, shared, kScripts);
}

}  // namespace lorelin
