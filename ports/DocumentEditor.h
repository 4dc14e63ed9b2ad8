#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

#include "ports/LoadedFile.h"

namespace lorelin {

// Port: the editor that holds the document. Texts are UTF-8 with "\n" line ends; positions and lengths count
// characters (code points) from 0. User-interface thread only.
class DocumentEditor {
 public:
  virtual ~DocumentEditor() = default;
  [[nodiscard]] virtual std::string Text() = 0;
  [[nodiscard]] virtual bool IsEmpty() const = 0;
  // Throws RuntimeError (Cancelled) and keeps the old text when the user presses Esc while a long one is put
  // there; the key stays where it is.
  virtual void SetText(std::string_view text) = 0;
  // Like SetText, for a text that was made from the one that is there.
  virtual void Revise(std::string_view text) { SetText(text); }
  // The document as RTF (Rich Text Format Specification 1.9.1), with the format that the editor can show.
  [[nodiscard]] virtual std::string RichText() = 0;
  // What gives the document as it is now as RTF. It may be called on another thread, once.
  [[nodiscard]] virtual std::function<std::string()> RichTextLater() {
    return [rtf = RichText()] { return rtf; };
  }
  // Replaces the document by the file's content, rich text or plain. Throws RuntimeError (53, 75 ...) and
  // keeps the old document when the file cannot be read.
  virtual LoadedFile LoadFile(const std::string& path) = 0;
  // Replaces the document by this RTF; nothing before it can be taken back. Throws like SetText.
  virtual void ShowRichText(const std::string& rtf) = 0;
  // Start of the selection, the caret's position when nothing is selected.
  [[nodiscard]] virtual std::size_t SelectionStart() = 0;
  [[nodiscard]] virtual std::string SelectedText() = 0;
  // Puts `text` in the place of the selection, or at the caret when nothing is selected; can be undone.
  virtual void ReplaceSelection(std::string_view text) = 0;
};

}  // namespace lorelin
