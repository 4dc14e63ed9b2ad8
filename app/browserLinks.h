#pragma once

#include <functional>
#include <string>

#include "ports/DocumentEditor.h"
#include "ports/Log.h"
#include "ports/MainView.h"
#include "ports/MessageBoxes.h"
#include "ports/Shell.h"

namespace lorelin {

// Decides what becomes of a link of a page: "lo:" commands and "speak:" texts drive the program, pages of the
// program are shown, addresses of the web are offered to the system's browser, since the pane stays offline.
// User-interface thread only.
class BrowserLinks {
 public:
  // What it works with; it owns none of it.
  struct Parts {
    MainView& view;
    DocumentEditor& editor;
    MessageBoxes& messageBoxes;
    Shell& shell;
    Log& log;
    std::function<void()> textmode;
    std::function<void()> openDoc;
    std::function<void()> showHomePage;
    std::function<void()> speak;  // the document
  };

  explicit BrowserLinks(Parts parts) : parts_(std::move(parts)) {}

  // Whether the navigation to `address` is to be cancelled; the address may be changed. A step that fails is
  // logged and skipped.
  [[nodiscard]] bool BeforeNavigate(std::string& address);

 private:
  void RunCommand(const std::string& command);
  void ShowEditor();
  void Speak(std::string& address);
  void OfferBrowser(const std::string& address);
  void Try(const std::function<void()>& step);

  Parts parts_;
};

}  // namespace lorelin
