#pragma once

#include <string>
#include <string_view>

#include "ports/BrowserPane.h"
#include "ports/Log.h"
#include "ports/MainView.h"
#include "settings/SettingsStore.h"

namespace lorelin {

// Whether the window shows the text or a page, and which page. User-interface thread only.
class Modes {
 public:
  // What it works with; it owns none of it.
  struct Parts {
    MainView& view;
    BrowserPane& browser;
    SettingsStore& settings;
    Log& log;
    std::string programFolder;  // the pages lie in its folder hypertext
  };

  explicit Modes(Parts parts) : parts_(std::move(parts)) {}

  void Textmode();
  void InteractiveMode();
  // What the window begins with. When a text follows, which brings the text mode, the home page is chosen but
  // not shown: a page that nobody sees would cost time.
  void ChooseInitial(bool textFollows);
  // Shows a page of the folder hypertext.
  void ShowPage(std::string_view name);
  void ShowHomePage();

 private:
  [[nodiscard]] std::string PagePath(std::string_view name) const;
  void ShowEditorPane();
  void Mark(bool interactive);

  Parts parts_;
};

}  // namespace lorelin
