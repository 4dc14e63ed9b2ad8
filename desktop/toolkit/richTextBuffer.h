#pragma once

#include <wx/textctrl.h>

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace lorelin {

// Formats and undo of a multi-line text control (wxTE_RICH2). RichEdit has both by itself; below GTK they are
// the program's own. One for each control, which has to outlive it. User-interface thread only.
class RichTextBuffer {
 public:
  // Texts without a font of their own are shown in `font`.
  RichTextBuffer(wxTextCtrl& control, const wxFont& font);
  ~RichTextBuffer();
  RichTextBuffer(const RichTextBuffer&) = delete;
  RichTextBuffer& operator=(const RichTextBuffer&) = delete;

  // Replaces text and formats by what is in the file, RTF or plain text; nothing before it can be taken back.
  // Throws RuntimeError when the file cannot be read, and changes nothing then.
  void ShowFile(const std::string& path);
  // Text and formats as they are now, as RTF; what is returned may be called on another thread, once.
  [[nodiscard]] std::function<std::string()> Rtf() const;
  [[nodiscard]] std::string Text() const;
  // Replaces all text, without formats; this can be taken back.
  void ReplaceText(std::string_view text);

  void Undo();
  void Redo();
  [[nodiscard]] bool CanUndo() const;
  [[nodiscard]] bool CanRedo() const;
  // Changes between the two belong together.
  void BeginChange();
  void EndChange();

  // Sizes are shown this many times as large.
  void SetZoom(double factor);

  // Characters in the text, and before a position of the control.
  [[nodiscard]] std::size_t Length() const;
  [[nodiscard]] std::size_t CharactersBefore(long position) const;

 private:
  class Implementation;
  std::unique_ptr<Implementation> implementation_;
};

}  // namespace lorelin
