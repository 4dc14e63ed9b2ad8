#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "german/spokenGerman.h"

namespace lorelin {

// The extension "Abkürzungen" as it answers calls, by whatever way they come. One thread.
class AbbreviationFilter {
 public:
  // The name by which extensions are created.
  static constexpr const char* kName = "org.lorelin.Abkuerzungen";

  // `wordList` is the user's own list, read again whenever it has changed; it need not exist.
  explicit AbbreviationFilter(std::filesystem::path wordList) : wordList_(std::move(wordList)) {}

  // The result of a method: every hook that Lorelin calls is there, all but the filter do nothing. Absent for
  // a method that there is not, or a filter without a text.
  [[nodiscard]] std::optional<std::string> Call(std::string_view method,
                                                std::optional<std::string_view> argument);

 private:
  [[nodiscard]] const GermanSpeller& Speller();

  std::filesystem::path wordList_;
  GermanSpeller speller_;
  bool hasWords_ = false;
  std::filesystem::file_time_type seen_;
};

}  // namespace lorelin
