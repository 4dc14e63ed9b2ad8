#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace lorelin {

// What the command picker says and inserts; the index is that of the command in the table. Pure.
class CommandPicker {
 public:
  // What stands in a field that the command does not need.
  static constexpr std::string_view kNotNeeded = "(nicht benötigt)";

  CommandPicker() { FillParameterArray(); }

  // The names in the table's order; sorted they would not fit the other lists.
  [[nodiscard]] std::vector<std::string> Names() const;
  [[nodiscard]] std::string Name(std::size_t index) const;
  [[nodiscard]] std::string Description(std::size_t index) const { return descriptions_.at(index); }
  // What follows the name: "();" or the kinds of the parameters.
  [[nodiscard]] std::string ParameterHint(std::size_t index) const;
  [[nodiscard]] bool NeedsParameter1(std::size_t index) const { return Count(index) >= 1; }
  [[nodiscard]] bool NeedsParameter2(std::size_t index) const { return Count(index) > 1; }

  // The line; nothing when the first parameter is not of its kind, which ErrorText explains. Commas are taken
  // as they stand.
  [[nodiscard]] std::optional<std::string> Line(std::size_t index, const std::string& parameter1,
                                                const std::string& parameter2) const;
  [[nodiscard]] std::string ErrorText(std::size_t index) const;

 private:
  void FillParameterArray();
  [[nodiscard]] int Count(std::size_t index) const;

  std::vector<std::string> kinds_;
  std::vector<std::string> counts_;
  std::vector<std::string> descriptions_;
};

}  // namespace lorelin
