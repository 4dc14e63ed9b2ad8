#include "desktop/toolkit/readingMarks.h"

#include <gtk/gtk.h>

#include <utility>
#include <vector>

#include "desktop/toolkit/colours.h"
#include "speech/ViewFollowing.h"
#include "speech/markColours.h"

namespace lorelin {
namespace {

GtkTextView* ViewOf(wxTextCtrl& control) {
  GtkWidget* const scrolled = static_cast<GtkWidget*>(control.GetHandle());
  return GTK_TEXT_VIEW(GTK_IS_BIN(scrolled) ? gtk_bin_get_child(GTK_BIN(scrolled)) : scrolled);
}

GdkRGBA RgbaOf(std::uint32_t colour) {
  return {.red = (colour >> 16 & 0xFF) / 255.0,
          .green = (colour >> 8 & 0xFF) / 255.0,
          .blue = (colour & 0xFF) / 255.0,
          .alpha = 1.0};
}

gint CharactersBetween(const GtkTextIter& from, const GtkTextIter& to) {
  return gtk_text_iter_get_offset(&to) - gtk_text_iter_get_offset(&from);
}

// A tag on one range of the text, which moves along with the text.
class Mark {
 public:
  Mark(GtkTextBuffer* buffer, const char* name)
      : buffer_(buffer), tag_(gtk_text_buffer_create_tag(buffer, name, nullptr)) {}

  [[nodiscard]] GtkTextTag* Tag() const { return tag_; }

  void Paint(const MarkColour& colour) {
    const GdkRGBA background = RgbaOf(colour.background);
    const GdkRGBA foreground = RgbaOf(colour.foreground);
    g_object_set(tag_, "background-rgba", &background, "foreground-rgba", &foreground, nullptr);
  }

  void Put(const std::optional<MarkedRange>& range) {
    if (range == Range()) return;
    Remove();
    if (!range) return;
    GtkTextIter from;
    GtkTextIter to;
    gtk_text_buffer_get_iter_at_offset(buffer_, &from, static_cast<gint>(range->begin));
    gtk_text_buffer_get_iter_at_offset(buffer_, &to, static_cast<gint>(range->end));
    // What is put in at either end is no part of it.
    begin_ = gtk_text_buffer_create_mark(buffer_, nullptr, &from, FALSE);
    end_ = gtk_text_buffer_create_mark(buffer_, nullptr, &to, TRUE);
    gtk_text_buffer_apply_tag(buffer_, tag_, &from, &to);
  }

  void Remove() {
    if (begin_ == nullptr) return;
    GtkTextIter from;
    GtkTextIter to;
    gtk_text_buffer_get_iter_at_mark(buffer_, &from, begin_);
    gtk_text_buffer_get_iter_at_mark(buffer_, &to, end_);
    gtk_text_buffer_remove_tag(buffer_, tag_, &from, &to);
    gtk_text_buffer_delete_mark(buffer_, std::exchange(begin_, nullptr));
    gtk_text_buffer_delete_mark(buffer_, std::exchange(end_, nullptr));
  }

  [[nodiscard]] std::optional<MarkedRange> Range() const {
    if (begin_ == nullptr) return std::nullopt;
    GtkTextIter from;
    GtkTextIter to;
    gtk_text_buffer_get_iter_at_mark(buffer_, &from, begin_);
    gtk_text_buffer_get_iter_at_mark(buffer_, &to, end_);
    return MarkedRange{static_cast<std::size_t>(gtk_text_iter_get_offset(&from)),
                       static_cast<std::size_t>(gtk_text_iter_get_offset(&to))};
  }

 private:
  GtkTextBuffer* buffer_;
  GtkTextTag* tag_;
  GtkTextMark* begin_ = nullptr;
  GtkTextMark* end_ = nullptr;
};

class GtkReadingMarks final : public ReadingMarks {
 public:
  explicit GtkReadingMarks(wxTextCtrl& control)
      : control_(control),
        view_(ViewOf(control)),
        buffer_(GTK_TEXT_BUFFER(g_object_ref(gtk_text_view_get_buffer(view_)))),
        sentence_(buffer_, "lorelin-read-sentence"),
        word_(buffer_, "lorelin-read-word") {
    ListenToText();
    ListenToReader();
  }
  ~GtkReadingMarks() override {
    for (const auto& [object, handler] : handlers_) {
      if (g_signal_handler_is_connected(object, handler) != FALSE)
        g_signal_handler_disconnect(object, handler);
      g_object_unref(object);
    }
    g_object_unref(buffer_);
  }
  GtkReadingMarks(const GtkReadingMarks&) = delete;
  GtkReadingMarks& operator=(const GtkReadingMarks&) = delete;

  [[nodiscard]] bool CanShow() const override { return true; }

  void Show(std::optional<MarkedRange> word, std::optional<MarkedRange> sentence) override {
    BringToFront();
    applying_ = true;
    sentence_.Put(sentence);
    word_.Put(word);
    applying_ = false;
    Follow();
  }

  void Hide() override {
    word_.Remove();
    sentence_.Remove();
    following_.Return();
  }

  void Return() override {
    following_.Return();
    Follow();
  }

  void PlaceCaret(std::size_t character) override {
    GtkTextIter place;
    gtk_text_buffer_get_iter_at_offset(buffer_, &place, static_cast<gint>(character));
    gtk_text_buffer_place_cursor(buffer_, &place);
    const auto [line, seen] = LineAndView(place);
    if (ViewFollowing::BelongsToTop(line, seen))
      gtk_text_view_scroll_to_mark(view_, gtk_text_buffer_get_insert(buffer_), 0, TRUE, 0, 0);
  }

  void OnEdited(std::function<void(std::size_t, std::size_t, std::size_t)> handler) override {
    edited_ = std::move(handler);
  }

 private:
  void Keep(gpointer object, gulong handler) { handlers_.emplace_back(g_object_ref(object), handler); }

  void ListenToText() {
    // The buffer knows how much it holds; to count a long text anew takes its time.
    Keep(buffer_, g_signal_connect(
                      buffer_, "insert-text",
                      G_CALLBACK(+[](GtkTextBuffer* buffer, GtkTextIter*, gchar*, gint, gpointer self) {
                        static_cast<GtkReadingMarks*>(self)->before_ = gtk_text_buffer_get_char_count(buffer);
                      }),
                      this));
    Keep(buffer_, g_signal_connect_after(
                      buffer_, "insert-text",
                      G_CALLBACK(+[](GtkTextBuffer* buffer, GtkTextIter* end, gchar*, gint, gpointer self) {
                        auto* const marks = static_cast<GtkReadingMarks*>(self);
                        const gint inserted = gtk_text_buffer_get_char_count(buffer) - marks->before_;
                        marks->Edited(static_cast<std::size_t>(gtk_text_iter_get_offset(end) - inserted), 0,
                                      static_cast<std::size_t>(inserted));
                      }),
                      this));
    Keep(buffer_,
         g_signal_connect(buffer_, "delete-range",
                          G_CALLBACK(+[](GtkTextBuffer*, GtkTextIter* from, GtkTextIter* to, gpointer self) {
                            static_cast<GtkReadingMarks*>(self)->removed_ =
                                static_cast<std::size_t>(CharactersBetween(*from, *to));
                          }),
                          this));
    Keep(buffer_, g_signal_connect_after(
                      buffer_, "delete-range",
                      G_CALLBACK(+[](GtkTextBuffer*, GtkTextIter* from, GtkTextIter*, gpointer self) {
                        auto* const marks = static_cast<GtkReadingMarks*>(self);
                        marks->Edited(static_cast<std::size_t>(gtk_text_iter_get_offset(from)),
                                      std::exchange(marks->removed_, 0), 0);
                      }),
                      this));
    // Text that is pasted brings its tags along.
    Keep(buffer_, g_signal_connect(buffer_, "apply-tag",
                                   G_CALLBACK(+[](GtkTextBuffer* buffer, GtkTextTag* tag, GtkTextIter*,
                                                  GtkTextIter*, gpointer self) {
                                     if (!static_cast<GtkReadingMarks*>(self)->IsForeign(tag)) return;
                                     g_signal_stop_emission_by_name(buffer, "apply-tag");
                                   }),
                                   this));
  }

  // Wheel, scroll bar, and the keys that move the caret.
  void ListenToReader() {
    Keep(view_, g_signal_connect(view_, "scroll-event",
                                 G_CALLBACK(+[](GtkWidget*, GdkEvent*, gpointer self) -> gboolean {
                                   static_cast<GtkReadingMarks*>(self)->following_.ReaderScrolled();
                                   return FALSE;
                                 }),
                                 this));
    Keep(view_,
         g_signal_connect(view_, "move-cursor",
                          G_CALLBACK(+[](GtkTextView*, GtkMovementStep, gint, gboolean, gpointer self) {
                            static_cast<GtkReadingMarks*>(self)->following_.ReaderScrolled();
                          }),
                          this));
    GtkWidget* const scrolled = static_cast<GtkWidget*>(control_.GetHandle());
    if (!GTK_IS_SCROLLED_WINDOW(scrolled)) return;
    GtkWidget* const bar = gtk_scrolled_window_get_vscrollbar(GTK_SCROLLED_WINDOW(scrolled));
    Keep(bar, g_signal_connect(bar, "change-value",
                               G_CALLBACK(+[](GtkRange*, GtkScrollType, gdouble, gpointer self) -> gboolean {
                                 static_cast<GtkReadingMarks*>(self)->following_.ReaderScrolled();
                                 return FALSE;
                               }),
                               this));
  }

  [[nodiscard]] bool IsForeign(GtkTextTag* tag) const {
    return !applying_ && (tag == word_.Tag() || tag == sentence_.Tag());
  }

  void Edited(std::size_t place, std::size_t removed, std::size_t inserted) {
    if (edited_) edited_(place, removed, inserted);
  }

  // Before the document's own formats, in colours for the ground as it is now.
  void BringToFront() {
    const gint count = gtk_text_tag_table_get_size(gtk_text_buffer_get_tag_table(buffer_));
    if (gtk_text_tag_get_priority(word_.Tag()) != count - 1) {
      gtk_text_tag_set_priority(sentence_.Tag(), count - 1);
      gtk_text_tag_set_priority(word_.Tag(), count - 1);
    }
    const std::uint32_t ground = ColourOf(control_.GetBackgroundColour());
    if (ground_ == ground) return;
    ground_ = ground;
    const MarkColours colours = MarkColoursOn(ground);
    word_.Paint(colours.word);
    sentence_.Paint(colours.sentence);
  }

  void Follow() {
    const auto word = word_.Range();
    const auto range = word ? word : sentence_.Range();
    if (!range) return;
    GtkTextIter place;
    gtk_text_buffer_get_iter_at_offset(buffer_, &place, static_cast<gint>(range->begin));
    const auto [line, seen] = LineAndView(place);
    const auto top = following_.Follow(line, seen);
    if (!top) return;
    GtkAdjustment* const scrolling = gtk_scrollable_get_vadjustment(GTK_SCROLLABLE(view_));
    gtk_adjustment_set_value(scrolling, gtk_adjustment_get_value(scrolling) + *top - seen.top);
  }

  [[nodiscard]] std::pair<ViewFollowing::Span, ViewFollowing::Span> LineAndView(
      const GtkTextIter& place) const {
    GdkRectangle line;
    gtk_text_view_get_iter_location(view_, &place, &line);
    GdkRectangle seen;
    gtk_text_view_get_visible_rect(view_, &seen);
    return {{line.y, line.height}, {seen.y, seen.height}};
  }

  wxTextCtrl& control_;
  GtkTextView* view_;
  GtkTextBuffer* buffer_;
  Mark sentence_;
  Mark word_;
  ViewFollowing following_;
  std::optional<std::uint32_t> ground_;
  bool applying_ = false;
  gint before_ = 0;  // characters, before something is inserted
  std::size_t removed_ = 0;
  std::function<void(std::size_t, std::size_t, std::size_t)> edited_;
  std::vector<std::pair<gpointer, gulong>> handlers_;
};

}  // namespace

std::unique_ptr<ReadingMarks> MakeReadingMarks(wxTextCtrl& control) {
  return std::make_unique<GtkReadingMarks>(control);
}

}  // namespace lorelin
