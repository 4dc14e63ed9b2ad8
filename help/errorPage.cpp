#include "help/errorPage.h"

#include "base/RuntimeError.h"
#include "base/modFile.h"
#include "base/paths.h"
#include "base/text.h"

namespace lorelin {
namespace {

std::string Details(std::int32_t number, const std::string& description) {
  return "<p><p>Fehlernummer: " + std::to_string(number) + "<br>Fehlerbeschreibung: " + description +
         (description.empty() ? "(keine Fehlernummer!)" : "");
}

}  // namespace

std::string ErrorPage::Template() const {
  try {
    return ReadFileBytes(JoinPath(parts_.programFolder, {"hypertext", "err.html"}));
  } catch (const RuntimeError& error) {
    parts_.log.Write(std::string("err.html: ") + error.what());
    return {};
  }
}

void ErrorPage::Write(const std::string& path, const std::string& page) const {
  try {
    parts_.files.Replace(path, page);
  } catch (const RuntimeError& error) {
    parts_.log.Write(path + ": " + error.what());
  }
}

void ErrorPage::ShowErrorPage(std::int32_t number, const std::string& description) {
  if (number == 0) return;
  parts_.log.Write("Fehler " + std::to_string(number) + ": " + description);
  std::string page = Template();
  ReplaceAll(page, "%MOREINFO", Details(number, description));
  const std::string path = JoinPath(parts_.programFolder, {"hypertext", "err2.html"});
  Write(path, page);
  parts_.browser.Navigate(path);
  parts_.view.ShowEditor(false);
  parts_.view.ShowBrowser(true);
}

}  // namespace lorelin
