#pragma once

namespace lorelin {

// Port: what people do in the visible one of editor and page beyond reading and writing it. User-interface
// thread only.
class EditorCommands {
 public:
  virtual ~EditorCommands() = default;
  virtual void Undo() = 0;
  virtual void Redo() = 0;
  // Whether there is something to take back or to repeat. Asked often: quick.
  [[nodiscard]] virtual bool CanUndo() = 0;
  [[nodiscard]] virtual bool CanRedo() = 0;
  // Whether text of the document that can be seen is selected. Asked often: quick.
  [[nodiscard]] virtual bool HasSelection() = 0;
  virtual void SelectAll() = 0;
  // Shows the window that searches, with or without what it takes to replace.
  virtual void ShowSearch(bool replace) = 0;
  // The next place of what was searched last; asks when nothing was.
  virtual void SearchAgain() = 0;
  // One step larger (1) or smaller (-1), or (0) as usual.
  virtual void Zoom(int steps) = 0;
};

}  // namespace lorelin
