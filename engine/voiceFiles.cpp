#include "engine/voiceFiles.h"

#include <algorithm>
#include <system_error>

namespace lorelin::engine {
namespace {

namespace fs = std::filesystem;

constexpr int kDeepest = 3;
constexpr std::size_t kMostFiles = 2000;

}  // namespace

std::vector<fs::path> VoiceFilesBelow(const fs::path& folder, std::string_view ending) {
  std::vector<fs::path> files;
  std::error_code error;
  auto entry = fs::recursive_directory_iterator(folder, fs::directory_options::skip_permission_denied, error);
  for (std::size_t seen = 0; !error && entry != fs::end(entry) && seen < kMostFiles; ++seen) {
    if (entry.depth() >= kDeepest) entry.disable_recursion_pending();
    if (entry->path().extension() == ending) files.push_back(entry->path());
    entry.increment(error);
  }
  std::sort(files.begin(), files.end());
  return files;
}

int LanguageRank(std::string_view language) {
  if (language.starts_with("de")) return 0;
  return language.starts_with("en") ? 1 : 2;
}

}  // namespace lorelin::engine
