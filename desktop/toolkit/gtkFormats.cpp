#include "desktop/toolkit/gtkFormats.h"

#include <algorithm>
#include <cstdlib>
#include <string_view>

#include "base/textEncoding.h"
#include "desktop/toolkit/colours.h"
#include "desktop/toolkit/gtkColour.h"
#include "desktop/toolkit/gtkPieces.h"
#include "documents/longParagraphs.h"

namespace lorelin {
namespace {

constexpr double kPixelsPerTwip = 96.0 / 1440.0;
constexpr double kSmallScript = 0.7;
constexpr int kScriptRise = 4;  // points
constexpr const char* kFormatKey = "lorelin-format";
constexpr const char* kParagraphKey = "lorelin-paragraph";

template <typename Format>
Format FormatAt(const GtkTextIter& iter, const char* key) {
  Format format;
  GSList* const tags = gtk_text_iter_get_tags(&iter);
  for (const GSList* entry = tags; entry != nullptr; entry = entry->next) {
    if (const void* const data = g_object_get_data(G_OBJECT(entry->data), key); data != nullptr) {
      format = *static_cast<const Format*>(data);
    }
  }
  g_slist_free(tags);
  return format;
}

void AddRun(RichText& content, std::size_t bytes, const CharacterFormat& format) {
  if (bytes == 0) return;
  if (content.runs.empty() || !(content.runs.back().format == format)) content.runs.push_back({0, format});
  content.runs.back().bytes += bytes;
}

}  // namespace

GtkFormats::GtkFormats(wxTextCtrl& control, GtkTextBuffer* buffer, const wxFont& font)
    : control_(control), buffer_(buffer), usualPoints_(font.GetFractionalPointSize()), font_(font) {}

void GtkFormats::Apply(const RichText& text) {
  fonts_ = text.fonts;
  ForgetTags();
  ApplyRuns(text);
  ApplyParagraphs(text);
}

void GtkFormats::Read(RichText& content) const {
  content.fonts = fonts_;
  ReadRuns(content);
  ReadParagraphs(content);
}

void GtkFormats::SetZoom(double factor) {
  zoom_ = factor;
  for (const auto& [format, tag] : tags_) SetSize(tag, format);
}

void GtkFormats::ShowIn(const wxFont& font, bool everywhere) {
  font_ = font;
  everywhere_ = everywhere;
  for (const auto& [format, tag] : tags_) {
    SetSize(tag, format);
    SetFamily(tag, format);
    SetColours(tag, format);
  }
}

void GtkFormats::ForgetTags() {
  GtkTextTagTable* const table = gtk_text_buffer_get_tag_table(buffer_);
  for (const auto& [format, tag] : tags_) gtk_text_tag_table_remove(table, tag);
  for (const auto& [format, tag] : paragraphTags_) gtk_text_tag_table_remove(table, tag);
  tags_.clear();
  paragraphTags_.clear();
}

void GtkFormats::ApplyRuns(const RichText& text) {
  GtkTextIter from;
  gtk_text_buffer_get_start_iter(buffer_, &from);
  std::size_t at = 0;
  for (const TextRun& run : text.runs) {
    GtkTextIter to = from;
    gtk_text_iter_forward_chars(
        &to, static_cast<gint>(CharacterCount(std::string_view(text.text).substr(at, run.bytes))));
    if (!(run.format == CharacterFormat{}))
      gtk_text_buffer_apply_tag(buffer_, TagFor(run.format), &from, &to);
    at += run.bytes;
    from = to;
  }
}

void GtkFormats::ApplyParagraphs(const RichText& text) {
  gint line = 0;
  for (const ParagraphRun& run : text.paragraphs) {
    const gint end = LineBehind(line, run.paragraphs);
    if (!(run.format == ParagraphFormat{})) {
      GtkTextIter from;
      GtkTextIter to;
      gtk_text_buffer_get_iter_at_line(buffer_, &from, line);
      gtk_text_buffer_get_iter_at_line(buffer_, &to, end);
      if (end >= gtk_text_buffer_get_line_count(buffer_)) gtk_text_buffer_get_end_iter(buffer_, &to);
      gtk_text_buffer_apply_tag(buffer_, TagFor(run.format), &from, &to);
    }
    line = end;
  }
}

// The buffer's lines are paragraphs or pieces of them.
gint GtkFormats::LineBehind(gint line, std::size_t paragraphs) const {
  if (!HoldsPieces(buffer_)) return line + static_cast<gint>(paragraphs);
  for (const gint lines = gtk_text_buffer_get_line_count(buffer_); paragraphs > 0 && line < lines; ++line) {
    if (!GoesOn(line)) --paragraphs;
  }
  return line;
}

bool GtkFormats::GoesOn(gint line) const {
  GtkTextIter end;
  gtk_text_buffer_get_iter_at_line(buffer_, &end, line);
  if (gtk_text_iter_ends_line(&end) == FALSE) gtk_text_iter_forward_to_line_end(&end);
  return gtk_text_iter_get_char(&end) == static_cast<gunichar>(kPieceEnd);
}

GtkTextTag* GtkFormats::TagFor(const CharacterFormat& format) {
  const auto [entry, added] = tags_.try_emplace(format, nullptr);
  if (!added) return entry->second;
  GtkTextTag* const tag = gtk_text_buffer_create_tag(buffer_, nullptr, nullptr);
  entry->second = tag;
  g_object_set_data(G_OBJECT(tag), kFormatKey, const_cast<CharacterFormat*>(&entry->first));
  SetFamily(tag, format);
  if (format.bold) g_object_set(tag, "weight", PANGO_WEIGHT_BOLD, nullptr);
  if (format.italic) g_object_set(tag, "style", PANGO_STYLE_ITALIC, nullptr);
  if (format.underline) g_object_set(tag, "underline", PANGO_UNDERLINE_SINGLE, nullptr);
  if (format.strikeThrough) g_object_set(tag, "strikethrough", TRUE, nullptr);
  if (format.position != ScriptPosition::Normal) {
    const int rise = format.position == ScriptPosition::Superscript ? kScriptRise : -kScriptRise / 2;
    g_object_set(tag, "rise", rise * PANGO_SCALE, "scale", kSmallScript, nullptr);
  }
  SetColours(tag, format);
  SetSize(tag, format);
  return tag;
}

void GtkFormats::SetFamily(GtkTextTag* tag, const CharacterFormat& format) const {
  const bool own = !everywhere_ && format.font < fonts_.size() && !fonts_[format.font].empty();
  if (own) g_object_set(tag, "family", fonts_[format.font].c_str(), nullptr);
  g_object_set(tag, "family-set", own ? TRUE : FALSE, nullptr);
}

// A colour that cannot be read on its ground, as black in a dark theme, is kept but not shown.
void GtkFormats::SetColours(GtkTextTag* tag, const CharacterFormat& format) {
  const bool grounded = format.background != kAutomaticColour;
  const wxColour ground = grounded ? WxColourOf(format.background) : control_.GetBackgroundColour();
  if (grounded) {
    const GdkRGBA colour = RgbaOf(format.background);
    g_object_set(tag, "background-rgba", &colour, nullptr);
  }
  const bool coloured = format.foreground != kAutomaticColour;
  const wxColour wanted = coloured ? WxColourOf(format.foreground) : control_.GetForegroundColour();
  g_object_set(tag, "foreground-set", FALSE, nullptr);
  if (ContrastOf(ColourOf(wanted), ColourOf(ground)) >= LeastContrast(control_)) {
    if (!coloured) return;
    const GdkRGBA colour = RgbaOf(format.foreground);
    g_object_set(tag, "foreground-rgba", &colour, nullptr);
  } else if (grounded) {
    const GdkRGBA colour = RgbaOf(ground.GetLuminance() > 0.5 ? 0x000000 : 0xFFFFFF);
    g_object_set(tag, "foreground-rgba", &colour, nullptr);
  }
}

void GtkFormats::SetSize(GtkTextTag* tag, const CharacterFormat& format) const {
  if (format.halfPoints == 0) return;
  const double scale = zoom_ * font_.GetFractionalPointSize() / usualPoints_;
  g_object_set(tag, "size-points", format.halfPoints / 2.0 * scale, nullptr);
}

GtkTextTag* GtkFormats::TagFor(const ParagraphFormat& format) {
  const auto [entry, added] = paragraphTags_.try_emplace(format, nullptr);
  if (!added) return entry->second;
  GtkTextTag* const tag = gtk_text_buffer_create_tag(buffer_, nullptr, nullptr);
  entry->second = tag;
  g_object_set_data(G_OBJECT(tag), kParagraphKey, const_cast<ParagraphFormat*>(&entry->first));
  constexpr GtkJustification kJustifications[] = {GTK_JUSTIFY_LEFT, GTK_JUSTIFY_CENTER, GTK_JUSTIFY_RIGHT,
                                                  GTK_JUSTIFY_FILL};
  g_object_set(tag, "justification", kJustifications[static_cast<std::size_t>(format.alignment)], nullptr);
  const auto pixels = [](std::int32_t twips) {
    return static_cast<int>(std::min(std::max(twips, 0), 14400) * kPixelsPerTwip);
  };
  // Beside the margins of the view.
  g_object_set(tag, "accumulative-margin", TRUE, nullptr);
  if (format.leftIndent > 0) g_object_set(tag, "left-margin", pixels(format.leftIndent), nullptr);
  if (format.rightIndent > 0) g_object_set(tag, "right-margin", pixels(format.rightIndent), nullptr);
  if (format.firstLineIndent != 0) {
    const int sign = format.firstLineIndent < 0 ? -1 : 1;
    g_object_set(tag, "indent", sign * pixels(std::abs(format.firstLineIndent)), nullptr);
  }
  return tag;
}

void GtkFormats::ReadRuns(RichText& content) const {
  if (!HasAny()) return AddRun(content, content.text.size(), {});
  GtkTextIter from;
  gtk_text_buffer_get_start_iter(buffer_, &from);
  std::string_view rest = content.text;
  while (!gtk_text_iter_is_end(&from)) {
    GtkTextIter to = from;
    if (gtk_text_iter_forward_to_tag_toggle(&to, nullptr) == FALSE)
      gtk_text_buffer_get_end_iter(buffer_, &to);
    const auto characters =
        static_cast<std::size_t>(gtk_text_iter_get_offset(&to) - gtk_text_iter_get_offset(&from));
    const std::size_t bytes = rest.size() - FromCharacter(rest, characters).size();
    AddRun(content, bytes, FormatAt<CharacterFormat>(from, kFormatKey));
    rest.remove_prefix(bytes);
    from = to;
  }
}

void GtkFormats::ReadParagraphs(RichText& content) const {
  const gint lines = gtk_text_buffer_get_line_count(buffer_);
  if (paragraphTags_.empty()) {
    const auto all = 1 + static_cast<std::size_t>(std::count(content.text.begin(), content.text.end(), '\n'));
    return content.paragraphs.push_back({HoldsPieces(buffer_) ? all : static_cast<std::size_t>(lines), {}});
  }
  for (gint line = 0; line < lines; line = LineBehind(line, 1)) {
    GtkTextIter iter;
    gtk_text_buffer_get_iter_at_line(buffer_, &iter, line);
    const auto format = FormatAt<ParagraphFormat>(iter, kParagraphKey);
    auto& runs = content.paragraphs;
    if (runs.empty() || !(runs.back().format == format)) runs.push_back({0, format});
    ++runs.back().paragraphs;
  }
}

}  // namespace lorelin
