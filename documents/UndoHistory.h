#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace lorelin {

// A change of a text: at `position` (in characters) `removed` gave way to `inserted`.
struct TextEdit {
  std::size_t position = 0;
  std::string removed;
  std::string inserted;

  bool operator==(const TextEdit&) const = default;
};

// What can be taken back. Changes between Begin and End belong together, and so do characters typed or erased
// one after the other in one word. Bounded: the oldest changes go first. Pure.
class UndoHistory {
 public:
  static constexpr std::size_t kMostBytes = std::size_t{64} << 20;

  explicit UndoHistory(std::size_t mostBytes = kMostBytes) : mostBytes_(mostBytes) {}

  void Begin() { ++depth_; }
  void End();
  void Inserted(std::size_t position, std::string text);
  void Removed(std::size_t position, std::string text);
  void Clear();

  [[nodiscard]] bool CanUndo() const { return done_ > 0; }
  [[nodiscard]] bool CanRedo() const { return done_ < groups_.size(); }
  // The edits to carry out now, in this order; empty when there is nothing to take back or to repeat.
  [[nodiscard]] std::vector<TextEdit> Undo();
  [[nodiscard]] std::vector<TextEdit> Redo();

 private:
  using Group = std::vector<TextEdit>;

  void Add(TextEdit edit);
  [[nodiscard]] bool Joins(const TextEdit& edit) const;
  void ForgetOldest();

  std::size_t mostBytes_;
  std::size_t bytes_ = 0;
  std::vector<Group> groups_;
  std::size_t done_ = 0;  // groups that can be taken back
  int depth_ = 0;
  bool groupOpen_ = false;  // the last group takes what comes
};

}  // namespace lorelin
