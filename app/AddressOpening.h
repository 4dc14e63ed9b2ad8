#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "app/Modes.h"
#include "documents/Documents.h"
#include "ports/Clipboard.h"
#include "ports/Clock.h"
#include "ports/Downloader.h"
#include "ports/FileDialogs.h"
#include "ports/MessageBoxes.h"
#include "ports/ProgressWindow.h"

namespace lorelin {

// Opens what lies at an address of the web: of a page its article, or a document. User-interface thread only.
class AddressOpening {
 public:
  // What it works with; it owns none of it.
  struct Parts {
    Documents& documents;
    FileDialogs& fileDialogs;
    MessageBoxes& messageBoxes;
    Clipboard& clipboard;
    Downloader& downloader;
    ProgressWindow& progress;
    Clock& clock;
    Modes& modes;
    std::string folder;  // for the file while it is read
  };

  explicit AddressOpening(Parts parts) : parts_(std::move(parts)) {}

  // Asks for the address; the one on the clipboard is proposed.
  void Choose();
  void Open(const std::string& address);

 private:
  // Nothing when there is nothing to show.
  [[nodiscard]] std::optional<Downloader::Page> Fetch(const std::string& address, const std::string& file);
  void Tell(const std::string& text);

  Parts parts_;
};

// The address that a person means: without blanks around it, "https://" in front of one without a scheme.
// Nothing for what is no address of the web.
[[nodiscard]] std::optional<std::string> WebAddress(std::string_view typed);
// Whether a text is nothing but an address with its scheme.
[[nodiscard]] bool IsWebAddress(std::string_view text);

}  // namespace lorelin
