#include "documents/UndoHistory.h"

#include <algorithm>
#include <utility>

#include "base/textEncoding.h"

namespace lorelin {
namespace {

std::size_t SizeOf(const std::vector<TextEdit>& group) {
  std::size_t size = 0;
  for (const TextEdit& edit : group) size += sizeof(TextEdit) + edit.removed.size() + edit.inserted.size();
  return size;
}

bool IsOneCharacter(const std::string& text) {
  return !text.empty() && Utf8Length(text) == text.size();
}

bool EndsAWord(const std::string& text) {
  return text == " " || text == "\n" || text == "\t";
}

}  // namespace

void UndoHistory::End() {
  if (depth_ > 0 && --depth_ == 0) groupOpen_ = false;
}

void UndoHistory::Clear() {
  groups_.clear();
  bytes_ = 0;
  done_ = 0;
  groupOpen_ = false;
}

void UndoHistory::Inserted(std::size_t position, std::string text) {
  if (!text.empty()) Add({.position = position, .removed = {}, .inserted = std::move(text)});
}

void UndoHistory::Removed(std::size_t position, std::string text) {
  if (!text.empty()) Add({.position = position, .removed = std::move(text), .inserted = {}});
}

// Whether the change goes on with the word that was typed or erased last.
bool UndoHistory::Joins(const TextEdit& edit) const {
  if (done_ == 0 || done_ != groups_.size()) return false;
  const TextEdit& last = groups_.back().back();
  if (IsOneCharacter(edit.inserted) && edit.removed.empty()) {
    return IsOneCharacter(last.inserted) && last.removed.empty() && last.position + 1 == edit.position &&
           (!EndsAWord(last.inserted) || EndsAWord(edit.inserted));
  }
  return IsOneCharacter(edit.removed) && edit.inserted.empty() && IsOneCharacter(last.removed) &&
         last.inserted.empty() && (edit.position == last.position || edit.position + 1 == last.position);
}

void UndoHistory::Add(TextEdit edit) {
  while (groups_.size() > done_) {
    bytes_ -= SizeOf(groups_.back());
    groups_.pop_back();
    groupOpen_ = false;
  }
  if (!(depth_ > 0 && groupOpen_) && !Joins(edit)) {
    groups_.emplace_back();
    ++done_;
  }
  groupOpen_ = depth_ > 0;
  groups_.back().push_back(std::move(edit));
  bytes_ += SizeOf({groups_.back().back()});
  ForgetOldest();
}

void UndoHistory::ForgetOldest() {
  std::size_t forgotten = 0;
  while (bytes_ > mostBytes_ && forgotten < groups_.size()) bytes_ -= SizeOf(groups_[forgotten++]);
  groups_.erase(groups_.begin(), groups_.begin() + static_cast<std::ptrdiff_t>(forgotten));
  done_ -= std::min(done_, forgotten);
  if (forgotten > 0 && groups_.empty()) groupOpen_ = false;
}

std::vector<TextEdit> UndoHistory::Undo() {
  if (!CanUndo()) return {};
  groupOpen_ = false;
  std::vector<TextEdit> edits = groups_[--done_];
  std::reverse(edits.begin(), edits.end());
  for (TextEdit& edit : edits) std::swap(edit.removed, edit.inserted);
  return edits;
}

std::vector<TextEdit> UndoHistory::Redo() {
  if (!CanRedo()) return {};
  groupOpen_ = false;
  return groups_[done_++];
}

}  // namespace lorelin
