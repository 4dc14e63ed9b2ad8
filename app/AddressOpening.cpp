#include "app/AddressOpening.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "base/paths.h"
#include "base/text.h"
#include "documents/LateProgress.h"
#include "import/importFormats.h"

namespace lorelin {
namespace {

constexpr std::string_view kTitle = "Adresse öffnen";

// More than any page or book that is read aloud; what has no end is given up here.
constexpr std::uintmax_t kMostMegabytes = 64;

std::string_view Trimmed(std::string_view text) {
  constexpr std::string_view kBlanks = " \t\r\n";
  const std::size_t begin = text.find_first_not_of(kBlanks);
  if (begin == std::string_view::npos) return {};
  return text.substr(begin, text.find_last_not_of(kBlanks) + 1 - begin);
}

bool HasWebScheme(std::string_view address) {
  const std::string lower = LowerAscii(address.substr(0, 8));
  return lower.starts_with("https://") || lower.starts_with("http://");
}

// "a.de", "a.de/b", "localhost:8080", but neither "mailto:a@b.de" nor "C:\a".
bool LooksLikeHost(std::string_view address) {
  const std::string_view host = address.substr(0, address.find_first_of("/?#"));
  const std::size_t colon = host.find(':');
  const bool port = colon != std::string_view::npos && colon + 1 < host.size() &&
                    std::ranges::all_of(host.substr(colon + 1), [](char c) { return c >= '0' && c <= '9'; });
  return !host.starts_with('.') &&
         (colon == std::string_view::npos ? host.find('.') < host.size() - 1 : port);
}

// A page, unless the address says otherwise.
std::string NameFor(std::string_view address) {
  const std::string_view path = address.substr(0, address.find_first_of("?#"));
  const ImportFormat* const format = ImportFormatOf(path);
  return "adresse." + std::string(format != nullptr ? format->endings.front() : "html");
}

// The file goes whatever becomes of it.
class Fetched {
 public:
  explicit Fetched(std::string path) : path_(std::move(path)) {}
  ~Fetched() {
    std::error_code error;
    std::filesystem::remove(NativePath(path_), error);
  }
  Fetched(const Fetched&) = delete;
  Fetched& operator=(const Fetched&) = delete;
  [[nodiscard]] const std::string& Path() const { return path_; }

 private:
  std::string path_;
};

}  // namespace

std::optional<std::string> WebAddress(std::string_view typed) {
  const std::string_view address = Trimmed(typed);
  if (address.empty() || address.find_first_of(" \t\r\n") != std::string_view::npos) return std::nullopt;
  if (HasWebScheme(address))
    return address.find("://") + 3 < address.size() ? std::optional(std::string(address)) : std::nullopt;
  if (address.find("://") != std::string_view::npos || !LooksLikeHost(address)) return std::nullopt;
  return "https://" + std::string(address);
}

bool IsWebAddress(std::string_view text) {
  return HasWebScheme(Trimmed(text)) && WebAddress(text);
}

void AddressOpening::Choose() {
  const std::string copied = parts_.clipboard.Text();
  const std::string proposed = IsWebAddress(copied) ? *WebAddress(copied) : "";
  if (const auto typed = parts_.fileDialogs.AskForAddress(proposed)) Open(*typed);
}

void AddressOpening::Open(const std::string& typed) {
  const auto address = WebAddress(typed);
  if (!address)
    return Tell("„" + typed + "“ ist keine Adresse im Internet. Sie beginnt mit „https://“ oder „http://“.");
  const Fetched file(JoinPath(parts_.folder, {NameFor(*address)}));
  const auto page = Fetch(*address, file.Path());
  if (page && parts_.documents.OpenPage(file.Path(), *address, page->charset)) parts_.modes.Textmode();
}

std::optional<Downloader::Page> AddressOpening::Fetch(const std::string& address, const std::string& file) {
  bool cancelled = false;
  Downloader::Page page = [&] {
    LateProgress progress(parts_.progress, parts_.clock);
    return parts_.downloader.FetchPage(address, file, kMostMegabytes << 20U, [&] {
      cancelled = !progress.Show("Die Seite wird geladen …", 0);
      return !cancelled;
    });
  }();
  if (page.problem.empty()) return page;
  if (cancelled) return std::nullopt;
  const std::string reason = page.tooLarge
                                 ? "Was dort liegt, ist größer als " + std::to_string(kMostMegabytes) + " MB."
                                 : page.problem;
  Tell("Die Adresse „" + WithoutCredentials(address) + "“ kann nicht geladen werden: " + reason);
  return std::nullopt;
}

void AddressOpening::Tell(const std::string& text) {
  parts_.messageBoxes.Show(text, kTitle, MessageIcon::Exclamation, MessageButtons::Ok);
}

}  // namespace lorelin
