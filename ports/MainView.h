#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace lorelin {

// The last one ticks once.
enum class WatchTimer { Clipboard, WindowTitle, Snapshot };

// Port: what the main window can be told to show. It decides nothing. User-interface thread only.
class MainView {
 public:
  virtual ~MainView() = default;
  virtual void ShowEditor(bool visible) = 0;
  virtual void ShowBrowser(bool visible) = 0;
  virtual void FocusEditor() = 0;
  // Check mark of the menu entry with this name ("mnuTextmode").
  virtual void CheckMenuEntry(std::string_view name, bool checked) = 0;
  // Enables whatever runs the command with this name ("ExportDoc"): menu entry, its key, toolbar button.
  virtual void EnableCommand(std::string_view command, bool enabled) = 0;
  virtual void StretchToolbar() = 0;
  virtual void EnableTimer(WatchTimer timer, bool enabled) = 0;
  virtual void SetTitle(std::string_view title) = 0;
  // The documents that the menu offers to open again, the latest first.
  virtual void SetRecentFiles(const std::vector<std::string>& paths) = 0;
  // Where the window stands and how it is parted, in a form of its own; "" leaves it as it is.
  [[nodiscard]] virtual std::string Placement() = 0;
  virtual void Place(std::string_view placement) = 0;
  virtual void ShowWindow() = 0;
  virtual void HideWindow() = 0;
  // Ends the process: windows and engines go, a wait that is still under way is abandoned.
  virtual void EndProgram() = 0;
};

}  // namespace lorelin
