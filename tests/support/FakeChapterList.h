#pragma once

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "ports/ChapterList.h"

namespace lorelin {

class FakeChapterList final : public ChapterList {
 public:
  void ShowChapters(std::span<const Chapter> chapters) override {
    shown.assign(chapters.begin(), chapters.end());
    ++changes;
  }
  void MarkChapter(std::optional<std::size_t> index) override { marked = index; }
  void OnChapterChosen(std::function<void(std::size_t)> handler) override { chosen = std::move(handler); }

  std::vector<Chapter> shown;
  std::optional<std::size_t> marked;
  std::function<void(std::size_t)> chosen;
  int changes = 0;
};

}  // namespace lorelin
