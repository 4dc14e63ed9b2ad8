#include "app/browserLinks.h"

#include <exception>

#include "base/text.h"

namespace lorelin {
namespace {

constexpr std::string_view kCommandScheme = "lo:";
constexpr std::string_view kSpeechScheme = "speak:";

bool IsWebAddress(const std::string& address) {
  const std::string lower = LowerAscii(address.substr(0, 8));
  return lower.starts_with("http://") || lower.starts_with("https://");
}

}  // namespace

bool BrowserLinks::BeforeNavigate(std::string& address) {
  bool cancel = false;
  if (address.starts_with(kCommandScheme)) {
    // Without a parenthesis there is no command.
    if (const auto end = address.find('('); end != std::string::npos) RunCommand(address.substr(0, end));
    cancel = true;
  }
  if (address.starts_with(kSpeechScheme)) {
    Speak(address);
    cancel = true;
  }
  if (cancel || !IsWebAddress(address)) return cancel;
  OfferBrowser(address);
  return true;
}

void BrowserLinks::Try(const std::function<void()>& step) {
  try {
    step();
  } catch (const std::exception& error) {
    parts_.log.Write("Verweis: " + std::string(error.what()));
  }
}

void BrowserLinks::RunCommand(const std::string& command) {
  if (command == "lo:Go") {
    Try(parts_.textmode);
  } else if (command == "lo:Open") {
    Try(parts_.openDoc);
    ShowEditor();
  } else if (command == "lo:Speak") {
    Try([this] { parts_.messageBoxes.Show("", "Lorelin", MessageIcon::None, MessageButtons::Ok); });
    Try(parts_.showHomePage);
  }
}

void BrowserLinks::ShowEditor() {
  Try([this] { parts_.view.ShowEditor(true); });
  Try([this] { parts_.view.ShowBrowser(false); });
  Try([this] { parts_.view.FocusEditor(); });
}

// Blanks are all that is decoded.
void BrowserLinks::Speak(std::string& address) {
  ReplaceAll(address, "%20", " ");
  ShowEditor();
  Try([&] { parts_.editor.SetText(address.substr(kSpeechScheme.size())); });
  Try(parts_.speak);
}

void BrowserLinks::OfferBrowser(const std::string& address) {
  const MessageAnswer answer = parts_.messageBoxes.Show(
      "Lorelin zeigt nur die eigenen Seiten und geht nicht ins Internet.\n\nMöchten Sie die Adresse " +
          address + " in Ihrem Browser öffnen?",
      "Frage", MessageIcon::Question, MessageButtons::YesNo);
  if (answer != MessageAnswer::Yes) return;
  if (!parts_.shell.Open(address, "", ShowCommand::Normal)) parts_.log.Write("Kein Browser für " + address);
}

}  // namespace lorelin
