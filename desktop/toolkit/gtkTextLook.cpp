#include <gtk/gtk.h>

#include <algorithm>
#include <string_view>
#include <vector>

#include "base/textEncoding.h"
#include "desktop/toolkit/colours.h"
#include "desktop/toolkit/innerMargins.h"
#include "desktop/toolkit/textLook.h"

namespace lorelin {
namespace {

constexpr int kSample = 26;  // letters
constexpr double kPointsPerInch = 72;
constexpr double kUsualResolution = 96;

GtkTextView* ViewOf(wxTextCtrl& control) {
  GtkWidget* const scrolled = static_cast<GtkWidget*>(control.GetHandle());
  return GTK_TEXT_VIEW(GTK_IS_BIN(scrolled) ? gtk_bin_get_child(GTK_BIN(scrolled)) : scrolled);
}

}  // namespace

class TextLook::Implementation : public wxEvtHandler {
 public:
  Implementation(wxTextCtrl& control, int horizontal, int vertical)
      : control_(control),
        view_(ViewOf(control)),
        buffer_(GTK_TEXT_BUFFER(g_object_ref(gtk_text_view_get_buffer(view_)))),
        horizontal_(horizontal) {
    SetInnerMargins(control, horizontal, vertical);
    control_.Bind(wxEVT_SIZE, &Implementation::OnSize, this);
    handler_ = g_signal_connect_after(
        buffer_, "insert-text",
        G_CALLBACK(+[](GtkTextBuffer*, GtkTextIter* end, gchar* text, gint size, gpointer self) {
          static_cast<Implementation*>(self)->Inserted(*end, {text, static_cast<std::size_t>(size)});
        }),
        this);
  }
  ~Implementation() override {
    g_signal_handler_disconnect(buffer_, handler_);
    g_object_unref(buffer_);
  }
  Implementation(const Implementation&) = delete;
  Implementation& operator=(const Implementation&) = delete;

  void Show(const ReadingLook& look) {
    look_ = look;
    control_.SetBackgroundColour(look.colours ? WxColourOf(look.colours->ground) : wxNullColour);
    control_.SetForegroundColour(look.colours ? WxColourOf(look.colours->text) : wxNullColour);
    Update();
  }

  void Update() {
    const int more = control_.GetCharHeight() * (look_.lineSpacing - 100) / 100;
    gtk_text_view_set_pixels_inside_wrap(view_, more);
    gtk_text_view_set_pixels_below_lines(view_, more);
    SpaceLetters();
    Arrange();
  }

 private:
  void OnSize(wxSizeEvent& event) {
    event.Skip();
    Arrange();
  }

  // Room between letters in units of Pango.
  [[nodiscard]] int Spacing() const {
    const double resolution = gdk_screen_get_resolution(gtk_widget_get_screen(GTK_WIDGET(view_)));
    const double size = control_.GetFont().GetFractionalPointSize() / kPointsPerInch *
                        (resolution > 0 ? resolution : kUsualResolution);
    return static_cast<int>(size * look_.letterSpacing / 100 * PANGO_SCALE);
  }

  // The view knows no such room by itself, only a tag does. It is behind all others and means nothing to who
  // reads the document's formats.
  void SpaceLetters() {
    if (look_.letterSpacing == 0 && tag_ == nullptr) return;
    if (tag_ == nullptr) {
      tag_ = gtk_text_buffer_create_tag(buffer_, "lorelin-letter-spacing", nullptr);
      gtk_text_tag_set_priority(tag_, 0);
    }
    g_object_set(tag_, "letter-spacing", Spacing(), nullptr);
    GtkTextIter from;
    GtkTextIter to;
    gtk_text_buffer_get_bounds(buffer_, &from, &to);
    gtk_text_buffer_remove_tag(buffer_, tag_, &from, &to);
    Space(from, to);
  }

  [[nodiscard]] bool Spaces() const { return look_.letterSpacing != 0 && tag_ != nullptr; }

  void Space(const GtkTextIter& from, const GtkTextIter& to) {
    if (Spaces()) gtk_text_buffer_apply_tag(buffer_, tag_, &from, &to);
  }

  // The letters of a long text are counted only for who wants it.
  void Inserted(const GtkTextIter& end, std::string_view text) {
    if (!Spaces()) return;
    GtkTextIter from = end;
    gtk_text_iter_backward_chars(&from, static_cast<gint>(CharacterCount(text)));
    Space(from, end);
  }

  // A column in the middle of the view.
  void Arrange() {
    int margin = horizontal_;
    if (look_.columnWidth != 0) {
      const double letter = control_.GetTextExtent("abcdefghijklmnopqrstuvwxyz").x / double{kSample} +
                            Spacing() / double{PANGO_SCALE};
      const int column = static_cast<int>(letter * look_.columnWidth);
      margin = std::max(margin, (control_.GetClientSize().x - column) / 2);
    }
    if (gtk_text_view_get_left_margin(view_) == margin) return;
    gtk_text_view_set_left_margin(view_, margin);
    gtk_text_view_set_right_margin(view_, margin);
  }

  wxTextCtrl& control_;
  GtkTextView* view_;
  GtkTextBuffer* buffer_;
  int horizontal_;
  gulong handler_ = 0;
  GtkTextTag* tag_ = nullptr;  // the buffer's
  ReadingLook look_;
};

TextLook::TextLook(wxTextCtrl& control, int horizontal, int vertical)
    : implementation_(std::make_unique<Implementation>(control, horizontal, vertical)) {}
TextLook::~TextLook() = default;

void TextLook::Show(const ReadingLook& look) {
  implementation_->Show(look);
}
void TextLook::Update() {
  implementation_->Update();
}
TextLook::Parts TextLook::CanShow() {
  return {.font = true, .spacing = true, .colours = true};
}

}  // namespace lorelin
