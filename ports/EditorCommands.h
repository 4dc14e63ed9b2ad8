#pragma once

namespace lorelin {

// Port: what people do in the visible one of editor and page beyond reading and writing it. User-interface
// thread only.
class EditorCommands {
 public:
  virtual ~EditorCommands() = default;
  // Whether the page is the visible one.
  [[nodiscard]] virtual bool ShowsPage() = 0;
  // Puts on the clipboard what is selected in the page.
  virtual void CopyFromPage() = 0;
  virtual void Undo() = 0;
  virtual void Redo() = 0;
  // Whether there is something to take back or to repeat. Asked often: quick.
  [[nodiscard]] virtual bool CanUndo() = 0;
  [[nodiscard]] virtual bool CanRedo() = 0;
  // Whether text of the document that can be seen is selected. Asked often: quick.
  [[nodiscard]] virtual bool HasSelection() = 0;
  virtual void SelectAll() = 0;
  // Shows the window that searches, with or without what it takes to replace; in a page nothing is replaced.
  virtual void ShowSearch(bool replace) = 0;
  // The next place of what was searched last; asks when nothing was.
  virtual void SearchAgain() = 0;
  // Shows text and pages so many steps larger than usual; less than 0 is smaller. No change of the text.
  virtual void SetZoom(int steps) = 0;
};

}  // namespace lorelin
