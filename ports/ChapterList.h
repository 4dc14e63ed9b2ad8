#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <span>

#include "ports/DocumentInfo.h"

namespace lorelin {

// Port: the list of the document's chapters beside it. User-interface thread only.
class ChapterList {
 public:
  virtual ~ChapterList() = default;
  // These instead of those that were shown; without any the list is not to be seen.
  virtual void ShowChapters(std::span<const Chapter> chapters) = 0;
  // Marks the chapter with this index, from 0; nothing marks none.
  virtual void MarkChapter(std::optional<std::size_t> index) = 0;
  // `handler` gets the index of the chapter that the user wants to go to. One handler; an empty one ends the
  // notification.
  virtual void OnChapterChosen(std::function<void(std::size_t index)> handler) = 0;
};

}  // namespace lorelin
