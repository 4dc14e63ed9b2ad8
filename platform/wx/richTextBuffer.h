#pragma once

#include <wx/textctrl.h>

#include <functional>
#include <map>
#include <memory>
#include <string>

#include "app/RichText.h"
#include "app/UndoHistory.h"

namespace lorelin {

// Formats and undo for a multi-line text control, where the toolkit offers neither. One for each control,
// which has to outlive it. User-interface thread only.
class RichTextBuffer {
 public:
  explicit RichTextBuffer(wxTextCtrl& control);
  ~RichTextBuffer();
  RichTextBuffer(const RichTextBuffer&) = delete;
  RichTextBuffer& operator=(const RichTextBuffer&) = delete;

  // Replaces text and formats; nothing before it can be taken back.
  void Show(const RichText& text);
  // Text and formats as they are now.
  [[nodiscard]] RichText Content() const;

  void Undo();
  void Redo();
  // Changes between the two belong together.
  void BeginChange();
  void EndChange();

  // Sizes in formats are shown this many times as large.
  void SetZoom(double factor);

 private:
  class Implementation;
  std::unique_ptr<Implementation> implementation_;
};

}  // namespace lorelin
