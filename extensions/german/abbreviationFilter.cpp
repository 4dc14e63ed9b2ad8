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

const GermanSpeller& AbbreviationFilter::Speller() {
  std::error_code error;
  const auto changed = std::filesystem::last_write_time(wordList_, error);
  if (error && hasWords_) {
    speller_ = GermanSpeller();
    hasWords_ = false;
  } else if (!error && (changed != seen_ || !hasWords_)) {
    std::ifstream file(wordList_, std::ios::binary);
    SpellingOptions options;
    options.ownWords = ParseWordList(std::string(std::istreambuf_iterator<char>(file), {}));
    speller_ = GermanSpeller(std::move(options));
    seen_ = changed;
    hasWords_ = true;
  }
  return speller_;
}

std::optional<std::string> AbbreviationFilter::Call(std::string_view method,
                                                    std::optional<std::string_view> argument) {
  if (std::find(kQuietHooks.begin(), kQuietHooks.end(), method) != kQuietHooks.end()) return std::string();
  if (method != "FilterText" || !argument) return std::nullopt;
  return Speller().SpellOut(*argument).text;
}

}  // namespace lorelin
