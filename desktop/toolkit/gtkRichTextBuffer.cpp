#include "desktop/toolkit/richTextBuffer.h"

#include <gtk/gtk.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "base/RuntimeError.h"
#include "base/textEncoding.h"
#include "desktop/toolkit/WxEventPump.h"
#include "desktop/toolkit/gtkFormats.h"
#include "desktop/toolkit/gtkPieces.h"
#include "desktop/toolkit/gtkUtf8Text.h"
#include "desktop/toolkit/loading.h"
#include "documents/UndoHistory.h"
#include "documents/longParagraphs.h"
#include "documents/richTextFile.h"
#include "richtext/RichText.h"
#include "richtext/rtf.h"

namespace lorelin {
namespace {

constexpr std::size_t kPiece = 2 << 20;  // bytes that are put into the text at once
constexpr long kLongestSpan = 16 << 20;  // characters that are replaced at once, and can be taken back

GtkTextView* ViewOf(wxTextCtrl& control) {
  GtkWidget* const scrolled = static_cast<GtkWidget*>(control.GetHandle());
  return GTK_TEXT_VIEW(GTK_IS_BIN(scrolled) ? gtk_bin_get_child(GTK_BIN(scrolled)) : scrolled);
}

void RequireNoEscape() {
  if (WxEventPump::EscapeIsWaiting()) throw RuntimeError(ErrorNumber::Cancelled);
}

}  // namespace

class RichTextBuffer::Implementation {
 public:
  Implementation(wxTextCtrl& control, const wxFont& font)
      : control_(control),
        view_(ViewOf(control)),
        buffer_(gtk_text_view_get_buffer(view_)),
        formats_(control, buffer_, font) {
    SetFont(font);
    g_object_ref(buffer_);
    Connect("insert-text",
            G_CALLBACK(+[](GtkTextBuffer*, GtkTextIter* where, gchar* text, gint size, gpointer self) {
              static_cast<Implementation*>(self)->Inserting(where, {text, static_cast<std::size_t>(size)});
            }));
    Connect("delete-range",
            G_CALLBACK(+[](GtkTextBuffer*, GtkTextIter* from, GtkTextIter* to, gpointer self) {
              static_cast<Implementation*>(self)->Deleting(*from, *to);
            }));
    Connect("begin-user-action", G_CALLBACK(+[](GtkTextBuffer*, gpointer self) {
              static_cast<Implementation*>(self)->history_.Begin();
            }));
    Connect("end-user-action", G_CALLBACK(+[](GtkTextBuffer*, gpointer self) {
              static_cast<Implementation*>(self)->history_.End();
            }));
  }

  ~Implementation() {
    for (const gulong handler : handlers_) g_signal_handler_disconnect(buffer_, handler);
    g_object_unref(buffer_);
  }

  Implementation(const Implementation&) = delete;
  Implementation& operator=(const Implementation&) = delete;

  // The old text goes when the new one is there: until then the loading can be cancelled.
  void Show(const RichText& text, Loading& loading) {
    {
      const Applying applying(applying_);
      const Quiet quiet(control_);
      const gint old = gtk_text_buffer_get_char_count(buffer_);
      Append(Utf8Text(text.text).View(), old, [&loading](double done) { loading.Advance(done); });
      Delete(0, old);
      if (IsShownAsItIs(text.text)) ForgetPieces(buffer_);
      formats_.Apply(text);
      GoToStart();
    }
    history_.Clear();
    Tell();
  }

  // A long text without formats is only fetched here; the rest is left to whoever wants it.
  [[nodiscard]] std::function<std::string()> Rtf() const {
    if (formats_.HasAny() || HoldsPieces(buffer_)) {
      return [content = Content()] { return WriteRtf(content); };
    }
    const GtkTextIter from = IterAt(0);
    GtkTextIter to;
    gtk_text_buffer_get_end_iter(buffer_, &to);
    return [fonts = formats_.Fonts(),
            text = std::shared_ptr<gchar>(gtk_text_iter_get_text(&from, &to), &g_free)] {
      RichText content;
      content.text = text.get();
      content.fonts = fonts;
      if (!content.text.empty()) content.runs.push_back({content.text.size(), {}});
      return WriteRtf(content);
    };
  }

  [[nodiscard]] RichText Content() const {
    RichText content;
    content.text = Text();
    formats_.Read(content);
    return content;
  }

  // Without the detour by the toolkit's strings: this runs while somebody types.
  [[nodiscard]] std::string Text() const {
    GtkTextIter from;
    GtkTextIter to;
    gtk_text_buffer_get_bounds(buffer_, &from, &to);
    return WrittenText(from, to);
  }

  void ShowLongParagraphsInPieces() {
    pieces_ = true;
    CopyAsWritten(view_);
  }

  void Carry(const std::vector<TextEdit>& edits) {
    if (edits.empty()) return;
    const Applying applying(applying_);
    gtk_text_buffer_begin_user_action(buffer_);
    for (const TextEdit& edit : edits) CarryOne(edit);
    gtk_text_buffer_end_user_action(buffer_);
  }

  void ReplaceText(std::string_view text) {
    if (text.size() > kPiece) RequireNoEscape();
    const Utf8Text valid(text);
    {
      const Quiet quiet(control_);
      text.size() > kPiece ? ReplaceInSteps(valid.View()) : ReplaceAtOnce(valid.View());
      GoToStart();
    }
    Tell();
  }

  // Without the toolkit's way, which moves the caret for every place.
  void ReplacePlaces(const std::vector<long>& places, long length, std::string_view replacement) {
    const Utf8Text utf8(replacement);
    const std::string_view valid = utf8.View();
    const long span = places.back() + length - places.front();
    gtk_text_buffer_begin_user_action(buffer_);
    if (!formats_.HasAny() && span <= kLongestSpan) {
      ReplaceSpan(places, length, valid);
    } else {
      // From the end, so that the other places stay where they are.
      for (auto place = places.rbegin(); place != places.rend(); ++place) {
        Put(static_cast<gint>(*place), static_cast<gint>(*place + length), valid);
      }
    }
    gtk_text_buffer_end_user_action(buffer_);
  }

  void SetZoom(double factor) {
    formats_.SetZoom(factor);
    SetFont(formats_.UsualFont());
  }

  void ShowIn(const wxFont& font, bool everywhere) {
    formats_.ShowIn(font, everywhere);
    SetFont(formats_.UsualFont());
  }

  UndoHistory& History() { return history_; }
  GtkTextBuffer* Buffer() { return buffer_; }

 private:
  // Whoever hears of changes hears of one when everything is done.
  class Quiet {
   public:
    explicit Quiet(wxTextCtrl& control) : control_(control) { control_.SetEvtHandlerEnabled(false); }
    ~Quiet() { control_.SetEvtHandlerEnabled(true); }
    Quiet(const Quiet&) = delete;
    Quiet& operator=(const Quiet&) = delete;

   private:
    wxTextCtrl& control_;
  };

  // The control and what stands for it before a screen reader count the letters of each piece that is put in
  // again, which takes as long as putting it in. The control only to format what is typed; the screen reader
  // is told of all the pieces together.
  class CountedOnce {
   public:
    CountedOnce(Implementation& text, gint begin)
        : text_(text), accessible_(gtk_widget_get_accessible(GTK_WIDGET(text.view_))), begin_(begin) {
      Change(&g_signal_handlers_block_matched);
    }
    ~CountedOnce() {
      Change(&g_signal_handlers_unblock_matched);
      const gint length = gtk_text_buffer_get_char_count(text_.buffer_) - begin_;
      if (length > 0) g_signal_emit_by_name(accessible_, "text-changed::insert", begin_, length);
    }
    CountedOnce(const CountedOnce&) = delete;
    CountedOnce& operator=(const CountedOnce&) = delete;

   private:
    void Change(decltype(&g_signal_handlers_block_matched) change) {
      const guint signal = g_signal_lookup("insert-text", GTK_TYPE_TEXT_BUFFER);
      for (gpointer listener : {static_cast<gpointer>(&text_.control_), static_cast<gpointer>(accessible_)}) {
        change(text_.buffer_, static_cast<GSignalMatchType>(G_SIGNAL_MATCH_ID | G_SIGNAL_MATCH_DATA), signal,
               0, nullptr, nullptr, listener);
      }
    }

    Implementation& text_;
    AtkObject* accessible_;  // the view's
    gint begin_;
  };

  // What the program does by itself is no change to take back.
  class Applying {
   public:
    explicit Applying(bool& flag) : flag_(flag), before_(std::exchange(flag, true)) {}
    ~Applying() { flag_ = before_; }
    Applying(const Applying&) = delete;
    Applying& operator=(const Applying&) = delete;

   private:
    bool& flag_;
    bool before_;
  };

  // The control's own function would write the whole text anew, without its formats.
  void SetFont(const wxFont& font) { control_.wxTextCtrlBase::SetFont(font); }

  void Connect(const char* signal, GCallback callback) {
    handlers_.push_back(g_signal_connect(buffer_, signal, callback, this));
  }

  void Inserting(GtkTextIter* where, std::string_view text) {
    if (insertingPieces_) return;
    const auto offset = static_cast<std::size_t>(gtk_text_iter_get_offset(where));
    if (!pieces_ || IsShownAsItIs(text)) {
      if (!applying_) history_.Inserted(offset, std::string(text));
      return;
    }
    // In the place of what was about to be inserted.
    g_signal_stop_emission_by_name(buffer_, "insert-text");
    const Applying inserting(insertingPieces_);
    const std::string written = Written(text);
    if (!applying_) history_.Inserted(offset, written);
    InsertPieces(buffer_, where, AsShown(written));
  }

  // What is moved within the text comes with its marks.
  [[nodiscard]] std::string Written(std::string_view text) const {
    const bool foreign = !HoldsPieces(buffer_) || text.find("\r\n") != std::string_view::npos;
    return foreign ? WithPlainLineEnds(text) : WithBlanks(std::string(text));
  }

  void Deleting(const GtkTextIter& from, const GtkTextIter& to) {
    if (applying_) return;
    history_.Removed(static_cast<std::size_t>(gtk_text_iter_get_offset(&from)), WrittenText(from, to));
  }

  [[nodiscard]] GtkTextIter IterAt(std::size_t offset) const {
    GtkTextIter iter;
    gtk_text_buffer_get_iter_at_offset(buffer_, &iter, static_cast<gint>(offset));
    return iter;
  }

  void CarryOne(const TextEdit& edit) {
    GtkTextIter from = IterAt(edit.position);
    GtkTextIter to = IterAt(edit.position + CharacterCount(edit.removed));
    gtk_text_buffer_delete(buffer_, &from, &to);
    gtk_text_buffer_insert(buffer_, &from, edit.inserted.data(), static_cast<gint>(edit.inserted.size()));
    gtk_text_buffer_place_cursor(buffer_, &from);
  }

  // The toolkit's own way of putting a text there goes to its end and back: all of it would have to be laid
  // out for that before anything is seen.
  void InsertAtEnd(std::string_view text) {
    GtkTextIter end;
    gtk_text_buffer_get_end_iter(buffer_, &end);
    gtk_text_buffer_insert(buffer_, &end, text.data(), static_cast<gint>(text.size()));
  }

  void ReplaceAtOnce(std::string_view valid) {
    gtk_text_buffer_begin_user_action(buffer_);
    Delete(0, gtk_text_buffer_get_char_count(buffer_));
    ForgetPieces(buffer_);
    if (!valid.empty()) InsertAtEnd(valid);
    gtk_text_buffer_end_user_action(buffer_);
  }

  // As a file is shown: until all of it is there, it can be given up, and the old text stands as it was.
  void ReplaceInSteps(std::string_view valid) {
    const bool foreignEnds = pieces_ && valid.find('\r') != std::string_view::npos;
    const std::string plain = foreignEnds ? WithPlainLineEnds(valid) : std::string();
    const std::string_view text = foreignEnds ? plain : valid;
    const gint old = gtk_text_buffer_get_char_count(buffer_);
    const Applying applying(applying_);
    Append(text, old, [](double) { RequireNoEscape(); });
    RememberReplacing(old, text);
    Delete(0, old);
    if (IsShownAsItIs(text)) ForgetPieces(buffer_);
  }

  // What is too long to be kept is not even fetched.
  void RememberReplacing(gint old, std::string_view text) {
    if (static_cast<std::size_t>(old) + text.size() > UndoHistory::kMostBytes) return history_.Clear();
    history_.Begin();
    history_.Removed(0, WrittenText(IterAt(0), IterAt(static_cast<std::size_t>(old))));
    history_.Inserted(0, std::string(text));
    history_.End();
  }

  void Append(std::string_view valid, gint old, const std::function<void(double)>& advance) {
    try {
      const CountedOnce counted(*this, old);
      for (std::size_t at = 0; at < valid.size();) {
        std::size_t end = std::min(at + kPiece, valid.size());
        while (end < valid.size() && (static_cast<unsigned char>(valid[end]) & 0xC0U) == 0x80U) ++end;
        InsertAtEnd(valid.substr(at, end - at));
        advance(static_cast<double>(end) / static_cast<double>(valid.size()));
        at = end;
      }
    } catch (...) {
      Delete(old, gtk_text_buffer_get_char_count(buffer_));
      throw;
    }
  }

  // Thousands of changes would take seconds; where no format could be lost, everything from the first place
  // to the last is one.
  void ReplaceSpan(const std::vector<long>& places, long length, std::string_view replacement) {
    const auto begin = static_cast<gint>(places.front());
    const auto end = static_cast<gint>(places.back() + length);
    const std::string text =
        WrittenText(IterAt(static_cast<std::size_t>(begin)), IterAt(static_cast<std::size_t>(end)));
    std::string_view rest = text;
    std::string changed;
    long at = begin;
    for (const long place : places) {
      const std::string_view behind = FromCharacter(rest, static_cast<std::size_t>(place - at));
      changed.append(rest.substr(0, rest.size() - behind.size())).append(replacement);
      rest = FromCharacter(behind, static_cast<std::size_t>(length));
      at = place + length;
    }
    Put(begin, end, changed);
    GoTo(begin);
  }

  void Put(gint from, gint to, std::string_view text) {
    Delete(from, to);
    GtkTextIter place = IterAt(static_cast<std::size_t>(from));
    gtk_text_buffer_insert(buffer_, &place, text.data(), static_cast<gint>(text.size()));
  }

  void Delete(gint from, gint to) {
    GtkTextIter first = IterAt(static_cast<std::size_t>(from));
    GtkTextIter last = IterAt(static_cast<std::size_t>(to));
    gtk_text_buffer_delete(buffer_, &first, &last);
  }

  void GoToStart() { GoTo(0); }

  void GoTo(gint offset) {
    const GtkTextIter place = IterAt(static_cast<std::size_t>(offset));
    gtk_text_buffer_place_cursor(buffer_, &place);
    gtk_text_view_scroll_to_mark(view_, gtk_text_buffer_get_insert(buffer_), 0, TRUE, 0, 0);
  }

  // What Quiet kept back.
  void Tell() {
    wxCommandEvent event(wxEVT_TEXT, control_.GetId());
    event.SetEventObject(&control_);
    control_.HandleWindowEvent(event);
  }

  wxTextCtrl& control_;
  GtkTextView* view_;
  GtkTextBuffer* buffer_;
  GtkFormats formats_;
  std::vector<gulong> handlers_;
  UndoHistory history_;
  bool applying_ = false;
  bool pieces_ = false;  // long paragraphs are shown in pieces
  bool insertingPieces_ = false;
};

RichTextBuffer::RichTextBuffer(wxTextCtrl& control, const wxFont& font)
    : implementation_(std::make_unique<Implementation>(control, font)) {}
RichTextBuffer::~RichTextBuffer() = default;

LoadedFile RichTextBuffer::ShowFile(const std::string& path) {
  Loading loading(path);
  StoredRichText stored = loading.Read();
  implementation_->Show(stored.text, loading);
  return std::move(stored.file);
}
void RichTextBuffer::ShowRtf(const std::string& rtf) {
  Loading loading;
  implementation_->Show(ReadRtf(rtf), loading);
}
std::function<std::string()> RichTextBuffer::Rtf() const {
  return implementation_->Rtf();
}
void RichTextBuffer::ShowLongParagraphsInPieces() {
  implementation_->ShowLongParagraphsInPieces();
}
std::string RichTextBuffer::SelectedText() const {
  return lorelin::SelectedText(implementation_->Buffer());
}
std::string RichTextBuffer::Text() const {
  return implementation_->Text();
}
void RichTextBuffer::ReplaceText(std::string_view text) {
  implementation_->ReplaceText(text);
}
bool RichTextBuffer::CanUndo() const {
  return implementation_->History().CanUndo();
}
bool RichTextBuffer::CanRedo() const {
  return implementation_->History().CanRedo();
}
void RichTextBuffer::Undo() {
  implementation_->Carry(implementation_->History().Undo());
}
void RichTextBuffer::Redo() {
  implementation_->Carry(implementation_->History().Redo());
}
void RichTextBuffer::ReplacePlaces(const std::vector<long>& places, long length,
                                   std::string_view replacement) {
  implementation_->ReplacePlaces(places, length, replacement);
}
void RichTextBuffer::SetZoom(double factor) {
  implementation_->SetZoom(factor);
}
void RichTextBuffer::ShowIn(const wxFont& font, bool everywhere) {
  implementation_->ShowIn(font, everywhere);
}
std::size_t RichTextBuffer::Length() const {
  return static_cast<std::size_t>(gtk_text_buffer_get_char_count(implementation_->Buffer()));
}
std::size_t RichTextBuffer::CharactersBefore(long position) const {
  return static_cast<std::size_t>(position);
}

}  // namespace lorelin
