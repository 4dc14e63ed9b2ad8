#include "desktop/toolkit/gtkPageLibrary.h"

#include <wx/log.h>

#include <dlfcn.h>

#include <filesystem>
#include <system_error>

#include "desktop/toolkit/offlineFilter.h"
#include "desktop/toolkit/pageSearch.h"
#include "desktop/toolkit/text.h"

namespace lorelin {
namespace {

namespace fs = std::filesystem;

constexpr const char* kFile = "lorelin-page.so";

// Beside the program, as in an unpacked archive, or among the libraries of an installation.
fs::path LibraryFile() {
  std::error_code error;
  const fs::path folder = fs::read_symlink("/proc/self/exe", error).parent_path();
  const fs::path beside = folder / kFile;
  return fs::exists(beside, error) ? beside : folder.parent_path() / LORELIN_LIBRARY_FOLDER / kFile;
}

const PageLibrary* Load() {
  void* const library = dlopen(LibraryFile().c_str(), RTLD_LAZY | RTLD_LOCAL);
  void* const give = library != nullptr ? dlsym(library, kGivePageLibrary) : nullptr;
  if (give != nullptr) return reinterpret_cast<GivePageLibrary>(give)();
  const char* const reason = dlerror();
  wxLogWarning("%s", reason != nullptr ? ToWx(reason) : wxString(kFile));
  return nullptr;
}

const PageLibrary* Library() {
  static const PageLibrary* const library = Load();
  return library;
}

}  // namespace

bool HasBrowserEngine() {
  return Library() != nullptr;
}

// Who has a view has the library.
wxWebView* NewPageView(wxWindow* parent, const PageEvents& events) {
  return Library()->newPageView(parent, events);
}
void LetPageTakeFocus(wxWebView& view) {
  Library()->letPageTakeFocus(view);
}
void TellThatPageIsUsable(wxWebView& view) {
  Library()->tellThatPageIsUsable(view);
}
void FocusPage(wxWebView& view) {
  Library()->focusPage(view);
}
void LetPageSend(wxWebView& view, const char* name) {
  Library()->letPageSend(view, name);
}
void BlockNetwork(wxWebView& view, const std::string& folder) {
  Library()->blockNetwork(view, folder);
}
bool FindInPage(wxWebView& view, const wxString& text, bool matchCase, bool backwards) {
  return Library()->findInPage(view, text, matchCase, backwards);
}

}  // namespace lorelin
