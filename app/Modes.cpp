#include "app/Modes.h"

#include "app/steps.h"
#include "base/paths.h"

namespace lorelin {

std::string Modes::PagePath(std::string_view name) const {
  return JoinPath(parts_.programFolder, {"hypertext", name});
}

void Modes::ShowEditorPane() {
  parts_.view.ShowEditor(true);
  parts_.view.ShowBrowser(false);
}

void Modes::Mark(bool interactive) {
  parts_.view.CheckMenuEntry("mnuInternet", interactive);
  parts_.view.CheckMenuEntry("mnuTextmode", !interactive);
}

void Modes::Textmode() {
  ShowEditorPane();
  Guarded(parts_.log, "Fokus", [this] { parts_.view.FocusEditor(); });
  Mark(false);
}

void Modes::InteractiveMode() {
  parts_.view.ShowEditor(false);
  parts_.view.ShowBrowser(true);
  Mark(true);
}

void Modes::ChooseInitial(bool textFollows) {
  if (!IsOn(setting::ShowWB, parts_.settings.Get(setting::ShowWB))) {
    ShowEditorPane();
    Mark(false);
    return;
  }
  if (!textFollows) InteractiveMode();
  ShowHomePage();
}

void Modes::ShowPage(std::string_view name) {
  InteractiveMode();
  parts_.browser.Navigate(PagePath(name));
  parts_.browser.Focus();
}

void Modes::ShowHomePage() {
  parts_.browser.Navigate(PagePath("home.htm"));
}

}  // namespace lorelin
