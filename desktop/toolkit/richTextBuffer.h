#pragma once

#include <wx/textctrl.h>

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "ports/LoadedFile.h"

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

  // Lets the control show paragraphs that it could not lay out at once in pieces (see AsShown), where it
  // needs that; texts of its own functions are to go through AsWritten then. Once, before there is a text.
  void ShowLongParagraphsInPieces();

  // Replaces text and formats by what is in the file, RTF or plain text; nothing before it can be taken back.
  // Throws RuntimeError when the file cannot be read, and changes nothing then.
  LoadedFile ShowFile(const std::string& path);
  // The same for RTF that is at hand.
  void ShowRtf(const std::string& rtf);
  // Text and formats as they are now, as RTF; what is returned may be called on another thread, once.
  [[nodiscard]] std::function<std::string()> Rtf() const;
  [[nodiscard]] std::string Text() const;
  [[nodiscard]] std::string SelectedText() const;
  // Replaces all text, without formats; this can be taken back. Where the control needs long for a long text
  // and the user presses Esc meanwhile, nothing is changed and RuntimeError 32755 (Cancelled) is thrown.
  void ReplaceText(std::string_view text);

  // Puts the replacement in the place of so many characters at each of these positions of the control, which
  // ascend; this can be taken back at once. Nobody is told.
  void ReplacePlaces(const std::vector<long>& places, long length, std::string_view replacement);

  void Undo();
  void Redo();
  [[nodiscard]] bool CanUndo() const;
  [[nodiscard]] bool CanRedo() const;

  // Sizes are shown this many times as large.
  void SetZoom(double factor);

  // Texts without a font of their own are shown in `font` from now on, or texts with one as well; sizes grow
  // with it, and colours are chosen anew for the ground of the control. No change of the text, and none at
  // all where a font is a part of it.
  void ShowIn(const wxFont& font, bool everywhere);

  // Characters in the text, and before a position of the control.
  [[nodiscard]] std::size_t Length() const;
  [[nodiscard]] std::size_t CharactersBefore(long position) const;

 private:
  class Implementation;
  std::unique_ptr<Implementation> implementation_;
};

}  // namespace lorelin
