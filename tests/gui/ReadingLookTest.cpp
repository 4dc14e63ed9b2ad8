#include <fstream>

#include "desktop/toolkit/colours.h"
#include "tests/gui/FormFixture.h"
#include "tests/gui/findControl.h"

#ifdef __WXGTK__
#include <gtk/gtk.h>

#include "base/contrast.h"
#endif

namespace lorelin {
namespace {

#ifdef __WXGTK__

// How the document is shown, chosen in the real dialog.
class ReadingLookForm : public FormFixture {
 protected:
  ReadingLookForm() { window.Load(); }

  GtkTextView* View() {
    GtkWidget* const scrolled = static_cast<GtkWidget*>(form.Editor().GetHandle());
    return GTK_TEXT_VIEW(gtk_bin_get_child(GTK_BIN(scrolled)));
  }
  GtkTextBuffer* Buffer() { return gtk_text_view_get_buffer(View()); }
  GdkRGBA Property(const char* tagName, const char* property) {
    GtkTextTag* const tag = gtk_text_tag_table_lookup(gtk_text_buffer_get_tag_table(Buffer()), tagName);
    GdkRGBA* colour = nullptr;
    g_object_get(tag, property, &colour, nullptr);
    const GdkRGBA copy = colour == nullptr ? GdkRGBA{} : *colour;
    gdk_rgba_free(colour);
    return copy;
  }
  static std::uint32_t Number(const GdkRGBA& colour) {
    const auto part = [](double value) { return static_cast<std::uint32_t>(value * 255 + 0.5); };
    return part(colour.red) << 16U | part(colour.green) << 8U | part(colour.blue);
  }
  // What the text at this character is shown in.
  GtkTextAttributes* Attributes(int character) {
    GtkTextAttributes* const values = gtk_text_view_get_default_attributes(View());
    GtkTextIter at;
    gtk_text_buffer_get_iter_at_offset(Buffer(), &at, character);
    (void)gtk_text_iter_get_attributes(&at, values);
    return values;
  }
  std::uint32_t LettersAt(int character) {
    GtkTextAttributes* const values = Attributes(character);
    GdkRGBA colour;  // the view's, unless a tag has another one
    gtk_style_context_get_color(gtk_widget_get_style_context(GTK_WIDGET(View())), GTK_STATE_FLAG_NORMAL,
                                &colour);
    if (values->appearance.rgba[1] != nullptr) colour = *values->appearance.rgba[1];
    gtk_text_attributes_unref(values);
    return Number(colour);
  }
  int SpacingAt(int character) {
    GtkTextAttributes* const values = Attributes(character);
    const int spacing = values->letter_spacing;
    gtk_text_attributes_unref(values);
    return spacing;
  }
  std::string FontAt(int character) {
    GtkTextAttributes* const values = Attributes(character);
    gchar* const text = pango_font_description_to_string(values->font);
    std::string font(text);
    g_free(text);
    gtk_text_attributes_unref(values);
    return font;
  }
  std::uint32_t Ground() { return ColourOf(form.Editor().GetBackgroundColour()); }
  void Select(wxDialog& dialog, const char* name, int entry) {
    auto& choice = FindControl<wxChoice>(dialog, name);
    choice.SetSelection(entry);
    wxCommandEvent event(wxEVT_CHOICE, choice.GetId());
    event.SetEventObject(&choice);
    choice.ProcessWindowEvent(event);
  }
  void Choosing(const std::function<void(wxDialog&)>& act) {
    InDialog([this] { Choose("Ansicht", "Lesedarstellung …"); }, "frmReadingLook", act);
  }
  void OpenRtf(const std::string& rtf) {
    const std::string path = folder.File("bunt.rtf");
    std::ofstream(path) << rtf;
    modules.opening.Open(path);
  }
  static void Ok(wxDialog& dialog) { PressButton(dialog, "OK"); }

  const std::string colourful =
      "{\\rtf1{\\fonttbl{\\f0 DejaVu Serif;}}{\\colortbl;\\red0\\green0\\blue200;}"
      "\\f0\\fs24 Schwarz {\\cf1 Blau} Ende.\\par\\li720 Eingezogen.\\par}";
};

TEST_F(ReadingLookForm, ShowsEveryChoiceAtOnceAndKeepsIt) {
  document.SetText("Guten Tag.");
  Choosing([this](wxDialog& dialog) {
    Select(dialog, "cboColours", 3);
    EXPECT_EQ(Ground(), 0x000000U);
    EXPECT_EQ(LettersAt(0), 0xFFFF00U);
    Select(dialog, "cboLines", 4);
    EXPECT_GT(gtk_text_view_get_pixels_inside_wrap(View()), 8);
    Ok(dialog);
  });
  EXPECT_EQ(LettersAt(0), 0xFFFF00U);
  EXPECT_EQ(settings.Get(setting::ReadingColours), "YellowOnBlack");
  EXPECT_EQ(settings.Get(setting::ReadingLines), "200");
}

TEST_F(ReadingLookForm, TakesEverythingBackWhenItIsCancelled) {
  document.SetText("Guten Tag.");
  const std::uint32_t ground = Ground();
  const std::uint32_t letters = LettersAt(0);
  const wxFont font = form.Editor().GetFont();
  Choosing([this, &font](wxDialog& dialog) {
    Select(dialog, "cboColours", 2);
    Select(dialog, "cboLetters", 3);
    Select(dialog, "cboFont", 2);
    FindControl<wxSpinCtrl>(dialog, "txtPoints").SetValue(30);
    Select(dialog, "cboColumn", 4);
    EXPECT_EQ(Ground(), 0x1E1E1EU);
    EXPECT_GT(SpacingAt(0), 0);
    EXPECT_NE(form.Editor().GetFont().GetFaceName(), font.GetFaceName());
    PressButton(dialog, "Abbrechen");
  });
  EXPECT_EQ(Ground(), ground);
  EXPECT_EQ(LettersAt(0), letters);
  EXPECT_EQ(form.Editor().GetFont(), font);
  EXPECT_EQ(SpacingAt(0), 0);
  EXPECT_EQ(settings.Get(setting::ReadingColours), "");
}

TEST_F(ReadingLookForm, IsResetByAButton) {
  SaveLook(settings, {.points = 24, .lineSpacing = 200, .scheme = ColourScheme::Dark});
  Choosing([this](wxDialog& dialog) {
    PressButton(dialog, "Zurücksetzen");
    EXPECT_EQ(FindControl<wxChoice>(dialog, "cboColours").GetSelection(), 0);
    Ok(dialog);
  });
  EXPECT_EQ(LoadLook(settings), LookSettings{});
}

TEST_F(ReadingLookForm, IsNoPartOfTheDocument) {
  OpenRtf(colourful);
  const std::string rtf = form.Editor().RichText();
  const std::string title = FromWx(form.GetTitle());
  form.Editor().ShowLook({.font = "DejaVu Sans Mono",
                          .points = 30,
                          .lineSpacing = 200,
                          .letterSpacing = 20,
                          .columnWidth = 45,
                          .colours = LookColours{.text = 0xFFFF00, .ground = 0}});
  EXPECT_EQ(form.Editor().RichText(), rtf);
  EXPECT_FALSE(form.Editor().CanUndo());
  EXPECT_FALSE(documents.Modified());
  EXPECT_EQ(FromWx(form.GetTitle()), title);
  form.Editor().ShowLook({});
  EXPECT_EQ(form.Editor().RichText(), rtf);
}

TEST_F(ReadingLookForm, TakesAFontThatWasChosenForFormattedTextToo) {
  OpenRtf(colourful);
  EXPECT_NE(FontAt(0).find("DejaVu Serif"), std::string::npos);
  form.Editor().ShowLook({.font = "DejaVu Sans Mono"});
  EXPECT_EQ(form.Editor().GetFont().GetFaceName(), "DejaVu Sans Mono");
  EXPECT_EQ(FontAt(0).find("Serif"), std::string::npos) << FontAt(0);
  form.Editor().ShowLook({});
  EXPECT_NE(FontAt(0).find("DejaVu Serif"), std::string::npos);
}

TEST_F(ReadingLookForm, MakesFormattedTextLargerInProportion) {
  OpenRtf(colourful);
  form.Editor().ShowLook({.points = form.Editor().UsualPoints() * 2});
  EXPECT_NE(FontAt(0).find(" 24"), std::string::npos) << FontAt(0);
  form.Editor().SetZoom(5);  // twice as large
  EXPECT_NE(FontAt(0).find(" 48"), std::string::npos) << FontAt(0);
}

TEST_F(ReadingLookForm, ShowsColoursOfTheDocumentOnlyWhereTheyCanBeRead) {
  OpenRtf(colourful);
  EXPECT_EQ(LettersAt(9), 0x0000C8U);
  form.Editor().ShowLook({.colours = LookColours{.text = 0xFFFF00, .ground = 0}});
  EXPECT_EQ(LettersAt(9), 0xFFFF00U);
  EXPECT_EQ(LettersAt(0), 0xFFFF00U);
  form.Editor().ShowLook({.colours = LookColours{.text = 0x1F1B16, .ground = 0xFDF6E3}});
  EXPECT_EQ(LettersAt(9), 0x0000C8U);
  EXPECT_EQ(LettersAt(0), 0x1F1B16U);
}

TEST_F(ReadingLookForm, SpacesWhatIsTypedLaterAsWell) {
  form.Editor().ShowLook({.letterSpacing = 20});
  document.SetText("Anfang");
  form.Editor().SetInsertionPointEnd();
  document.ReplaceSelection(" Ende");
  EXPECT_GT(SpacingAt(1), 0);
  EXPECT_EQ(SpacingAt(9), SpacingAt(1));
  form.Editor().Undo();
  EXPECT_EQ(document.Text(), "Anfang");
  form.Editor().ShowLook({});
  EXPECT_EQ(SpacingAt(1), 0);
}

TEST_F(ReadingLookForm, PutsTheTextIntoAColumnThatGrowsWithIt) {
  window.Textmode();
  const int usual = gtk_text_view_get_left_margin(View());
  form.Editor().ShowLook({.columnWidth = 45});
  const int narrow = gtk_text_view_get_left_margin(View());
  EXPECT_GT(narrow, usual);
  EXPECT_EQ(gtk_text_view_get_right_margin(View()), narrow);
  form.Editor().SetZoom(2);
  EXPECT_LT(gtk_text_view_get_left_margin(View()), narrow);
  form.Editor().SetZoom(0);
  form.Editor().ShowLook({});
  EXPECT_EQ(gtk_text_view_get_left_margin(View()), usual);
}

TEST_F(ReadingLookForm, LeavesLongParagraphsAsTheyAre) {
  std::string text;
  for (int i = 0; i < 20000; ++i) text += "Wort ";
  document.SetText(text);
  form.Editor().ShowLook({.points = 20, .lineSpacing = 150, .letterSpacing = 10, .columnWidth = 65});
  EXPECT_EQ(document.Text(), text);
  EXPECT_GT(SpacingAt(50000), 0);
}

TEST_F(ReadingLookForm, HasMarksThatCanBeReadInEveryScheme) {
  for (const LookColours colours : {LookColours{0x1F1B16, 0xFDF6E3}, LookColours{0xE6E6E6, 0x1E1E1E},
                                    LookColours{0xFFFF00, 0x000000}, LookColours{0x000000, 0xFFB000}}) {
    form.Editor().ShowLook({.colours = colours});
    document.SetText("Guten Tag. Ende.");
    speech.SpeakToolbar();
    voice.Hear({1, 6});
    for (const char* const tag : {"lorelin-read-word", "lorelin-read-sentence"}) {
      const std::uint32_t ground = Number(Property(tag, "background-rgba"));
      EXPECT_GE(ContrastOf(Number(Property(tag, "foreground-rgba")), ground), 4.5) << colours.ground;
      EXPECT_GE(ContrastOf(ground, colours.ground), 1.1) << tag << " on " << std::hex << colours.ground;
    }
    speech.Stop();
  }
}

TEST_F(ReadingLookForm, TellsThatOwnColoursCannotBeReadAndShowsOthers) {
  document.SetText("Guten Tag.");
  SaveLook(settings, {.scheme = ColourScheme::Own, .ownText = 0xFFFF00, .ownGround = 0xFFFF00});
  Choosing([this](wxDialog& dialog) {
    EXPECT_TRUE(FindControl<wxWindow>(dialog, "clrText").IsEnabled());
    Select(dialog, "cboColours", 4);
    EXPECT_EQ(LettersAt(0), 0x000000U);
    Select(dialog, "cboColours", 0);
    EXPECT_FALSE(FindControl<wxWindow>(dialog, "clrText").IsEnabled());
    Ok(dialog);
  });
}

TEST_F(ReadingLookForm, NamesItsControlsToAScreenReader) {
  Choosing([](wxDialog& dialog) {
    for (const auto& [control, name] :
         std::vector<std::pair<const char*, const char*>>{{"cboFont", "Schrift"},
                                                          {"txtPoints", "Größe in Punkt"},
                                                          {"cboLines", "Zeilenabstand"},
                                                          {"cboColours", "Farben"},
                                                          {"clrText", "Farbe der Schrift"}}) {
      auto* const widget = static_cast<GtkWidget*>(FindControl<wxWindow>(dialog, control).GetHandle());
      EXPECT_STREQ(atk_object_get_name(gtk_widget_get_accessible(widget)), name);
    }
    PressButton(dialog, "Abbrechen");
  });
}

#endif

}  // namespace
}  // namespace lorelin
