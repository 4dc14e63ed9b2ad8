#include "monitor/DesktopMonitor.h"

#include "base/textEncoding.h"
#include "documents/windowTitle.h"

namespace lorelin {
namespace {

constexpr std::size_t kLongestTitle = 255;  // characters

}  // namespace

// A text that is empty now, after one that was not, goes to Speak as well, which then reads the document.
void DesktopMonitor::LookAtClipboard() {
  if (parts_.clipboard.Text() == lastText_) return;
  lastText_ = parts_.clipboard.Text();
  std::string text = parts_.clipboard.Text();
  parts_.speech.Speak(text, false, "-1", true);
}

void DesktopMonitor::LookAtForeground() {
  parts_.statusBar.SetMessage("sd");
  const std::string whole = parts_.foreground.Title();
  std::string title(WithoutChangeMark(whole));
  title.resize(title.size() - FromCharacter(title, kLongestTitle).size());
  if (const auto end = title.find('\0'); end != std::string::npos) title.resize(end);
  if (title == lastTitle_) return;
  lastTitle_ = title;
  parts_.speech.Speak(title, false, "", false);
}

}  // namespace lorelin
