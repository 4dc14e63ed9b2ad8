#pragma once

#include <cstdint>
#include <string>

#include "ports/BrowserPane.h"
#include "ports/FileWriter.h"
#include "ports/Log.h"
#include "ports/MainView.h"

namespace lorelin {

// Shows an error as a page in the browser pane. User-interface thread only.
class ErrorPage {
 public:
  // What it works with; it owns none of it.
  struct Parts {
    MainView& view;
    BrowserPane& browser;
    FileWriter& files;
    Log& log;
    std::string programFolder;
  };

  explicit ErrorPage(Parts parts) : parts_(std::move(parts)) {}

  // Fills the template hypertext/err.html and shows the result; number 0 is no error. A step that fails is
  // logged and skipped: without a template the page is empty, without a written page the one before is shown.
  void ShowErrorPage(std::int32_t number, const std::string& description);

 private:
  [[nodiscard]] std::string Template() const;
  void Write(const std::string& path, const std::string& page) const;

  Parts parts_;
};

}  // namespace lorelin
