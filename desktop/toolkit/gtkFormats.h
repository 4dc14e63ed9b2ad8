#pragma once

#include <gtk/gtk.h>
#include <wx/textctrl.h>

#include <map>
#include <string>
#include <vector>

#include "desktop/toolkit/formatOrder.h"
#include "richtext/RichText.h"

namespace lorelin {

// The formats of a text as tags of its buffer, and back: each tag knows the format that it stands for,
// whatever zoom, font and colours show of it. Owns neither the control nor the buffer.
class GtkFormats {
 public:
  // `font` is the one that sizes of the text are meant beside.
  GtkFormats(wxTextCtrl& control, GtkTextBuffer* buffer, const wxFont& font);

  // The formats of the text, which is in the buffer already, instead of those that were there.
  void Apply(const RichText& text);
  // Adds fonts, runs and paragraphs to the text, which is that of the buffer.
  void Read(RichText& content) const;
  [[nodiscard]] bool HasAny() const { return !tags_.empty() || !paragraphTags_.empty(); }
  [[nodiscard]] const std::vector<std::string>& Fonts() const { return fonts_; }

  void SetZoom(double factor);
  // In another font; `everywhere` also where the text has one of its own. Colours are looked at anew.
  void ShowIn(const wxFont& font, bool everywhere);
  // What text without formats is shown in, zoomed.
  [[nodiscard]] wxFont UsualFont() const { return font_.Scaled(static_cast<float>(zoom_)); }

 private:
  void ForgetTags();
  void ApplyRuns(const RichText& text);
  void ApplyParagraphs(const RichText& text);
  void ReadRuns(RichText& content) const;
  void ReadParagraphs(RichText& content) const;
  [[nodiscard]] gint LineBehind(gint line, std::size_t paragraphs) const;
  [[nodiscard]] bool GoesOn(gint line) const;
  GtkTextTag* TagFor(const CharacterFormat& format);
  GtkTextTag* TagFor(const ParagraphFormat& format);
  void SetFamily(GtkTextTag* tag, const CharacterFormat& format) const;
  void SetColours(GtkTextTag* tag, const CharacterFormat& format);
  void SetSize(GtkTextTag* tag, const CharacterFormat& format) const;

  wxTextCtrl& control_;
  GtkTextBuffer* buffer_;
  double usualPoints_;
  wxFont font_;
  bool everywhere_ = false;
  double zoom_ = 1.0;
  std::vector<std::string> fonts_{std::string()};
  std::map<CharacterFormat, GtkTextTag*, ByKey> tags_;
  std::map<ParagraphFormat, GtkTextTag*, ByKey> paragraphTags_;
};

}  // namespace lorelin
