#pragma once

#include <glib.h>

#include <string>
#include <string_view>

namespace lorelin {

// A text as GTK takes it: what is not well-formed is repaired. Most texts are, and are not copied.
class Utf8Text {
 public:
  explicit Utf8Text(std::string_view text) : text_(text) {
    if (g_utf8_validate_len(text.data(), text.size(), nullptr) != FALSE) return;
    gchar* const valid = g_utf8_make_valid(text.data(), static_cast<gssize>(text.size()));
    repaired_ = valid;
    g_free(valid);
    text_ = repaired_;
  }
  ~Utf8Text() = default;
  Utf8Text(const Utf8Text&) = delete;
  Utf8Text& operator=(const Utf8Text&) = delete;

  [[nodiscard]] std::string_view View() const { return text_; }

 private:
  std::string_view text_;
  std::string repaired_;
};

}  // namespace lorelin
