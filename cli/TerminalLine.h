#pragma once

#include <string_view>

namespace lorelin::cli {

// One line on standard error that tells how something gets on, only on a terminal. It goes with the object.
class TerminalLine {
 public:
  TerminalLine();
  ~TerminalLine();
  TerminalLine(const TerminalLine&) = delete;
  TerminalLine& operator=(const TerminalLine&) = delete;

  // Whether anyone sees it.
  [[nodiscard]] bool Wanted() const { return wanted_; }
  // In place of what it showed before.
  void Show(std::string_view text);

 private:
  const bool wanted_;
  bool shown_ = false;
};

}  // namespace lorelin::cli
