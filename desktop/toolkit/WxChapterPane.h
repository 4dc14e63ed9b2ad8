#pragma once

#include <wx/button.h>
#include <wx/listbox.h>
#include <wx/panel.h>

#include <functional>
#include <optional>
#include <span>
#include <utility>

#include "ports/ChapterList.h"

namespace lorelin {

// The chapters in a list below a button that folds it up.
class WxChapterPane final : public wxPanel, public ChapterList {
 public:
  explicit WxChapterPane(wxWindow* parent);

  void ShowChapters(std::span<const Chapter> chapters) override;
  void MarkChapter(std::optional<std::size_t> index) override;
  void OnChapterChosen(std::function<void(std::size_t)> handler) override { handler_ = std::move(handler); }

 private:
  void Fold(bool folded);
  void Choose();
  void OnKey(wxKeyEvent& event);

  wxButton* heading_ = nullptr;
  wxListBox* list_ = nullptr;
  std::function<void(std::size_t)> handler_;
};

}  // namespace lorelin
