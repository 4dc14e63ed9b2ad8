#pragma once

#include <wx/textctrl.h>

#include <memory>
#include <vector>

#include "desktop/toolkit/readingMarks.h"
#include "desktop/toolkit/richTextBuffer.h"
#include "desktop/toolkit/textLook.h"
#include "ports/DocumentEditor.h"
#include "ports/ReadingLookView.h"

namespace lorelin {

// The document in a native multi-line text control.
class WxDocumentEditor final : public wxTextCtrl, public DocumentEditor, public ReadingLookView {
 public:
  explicit WxDocumentEditor(wxWindow* parent);

  std::string Text() override;
  bool IsEmpty() const override { return wxTextCtrl::IsEmpty(); }
  void SetText(std::string_view text) override;
  std::string RichText() override;
  std::function<std::string()> RichTextLater() override;
  LoadedFile LoadFile(const std::string& path) override;
  void ShowRichText(const std::string& rtf) override;
  std::size_t SelectionStart() override;
  std::string SelectedText() override;
  void ReplaceSelection(std::string_view text) override;

  void Undo() override;
  void Redo() override;
  [[nodiscard]] bool CanUndo() const override { return buffer_.CanUndo(); }
  [[nodiscard]] bool CanRedo() const override { return buffer_.CanRedo(); }
  // Selects the next place of the text from the caret on, or before it, and round the ends; false when there
  // is none.
  bool FindNext(const std::string& text, bool matchCase, bool backwards);
  // Replaces the selection when it is such a place, then goes to the next one.
  bool ReplaceNext(const std::string& text, const std::string& replacement, bool matchCase);
  // The number of places.
  int ReplaceAllPlaces(const std::string& text, const std::string& replacement, bool matchCase);
  // Where the selection is to be seen, its first line at least.
  [[nodiscard]] wxRect SelectionOnScreen() const;
  // So many steps larger than usual.
  void SetZoom(int steps);

  void ShowLook(const ReadingLook& look) override;
  // The size of the font that texts without one have.
  [[nodiscard]] int UsualPoints() const { return usualFont_.GetPointSize(); }

  [[nodiscard]] ReadingMarks& Marks() { return *marks_; }

  [[nodiscard]] std::size_t CharacterCount() const { return buffer_.Length(); }

 private:
  void ReplacePlaces(const std::vector<long>& places, long length, std::string_view replacement);

  wxFont usualFont_;
  RichTextBuffer buffer_;
  TextLook look_;
  std::unique_ptr<ReadingMarks> marks_;
  int zoomSteps_ = 0;
};

}  // namespace lorelin
