#include "extensions/german/abbreviationFilter.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <iterator>
#include <system_error>

namespace lorelin {
namespace {

constexpr std::array<std::string_view, 6> kQuietHooks{"Startup",  "Close",  "NewFile",
                                                      "SaveFile", "Export", "TaskScript"};

}  // namespace

const WordList& AbbreviationFilter::OwnWords() {
  std::error_code error;
  const auto changed = std::filesystem::last_write_time(wordList_, error);
  if (error) {
    words_.clear();
  } else if (changed != seen_) {
    std::ifstream file(wordList_, std::ios::binary);
    words_ = ParseWordList(std::string(std::istreambuf_iterator<char>(file), {}));
    seen_ = changed;
  }
  return words_;
}

std::optional<std::string> AbbreviationFilter::Call(std::string_view method,
                                                    std::optional<std::string_view> argument) {
  if (std::find(kQuietHooks.begin(), kQuietHooks.end(), method) != kQuietHooks.end()) return std::string();
  if (method != "FilterText" || !argument) return std::nullopt;
  return SpokenGerman(*argument, OwnWords());
}

}  // namespace lorelin
