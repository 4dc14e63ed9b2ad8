#include "desktop/toolkit/PlaceLine.h"

#include "tests/gui/FormFixture.h"
#include "tests/gui/findControl.h"

#ifdef __WXGTK__
#include <gtk/gtk.h>
#endif

namespace lorelin {
namespace {

// The place of the voice in the real status bar.
class PlaceLineTest : public FormFixture {
 protected:
  PlaceLineTest() { window.Load(); }

  void Read(const std::string& text) {
    window.Textmode();
    document.SetText(text);
    speech.SpeakToolbar();
  }
  void Hear(std::string_view word) {
    const std::string& text = voice.SpokenText();
    const std::size_t at = text.find(word);
    ASSERT_NE(at, std::string::npos);
    const std::size_t begin = CountCharacters(std::string_view(text).substr(0, at));
    voice.Hear({begin, begin + CountCharacters(word)});
  }
  wxSlider& Line() { return FindControl<wxSlider>(form, "place"); }
};

TEST_F(PlaceLineTest, ShowsWhereTheVoiceIs) {
  EXPECT_FALSE(Line().IsShown());
  Read("Eins gilt. Zwei gilt. Drei gilt. Vier gilt.");
  Hear("Zwei");
  EXPECT_TRUE(Line().IsShown());
  EXPECT_EQ(Panel(3), "Satz 2 von 4  ·  0:00");
  EXPECT_EQ(Line().GetValue(), 2);
  EXPECT_EQ(Line().GetMax(), 4);
  window.RunCommand("Stop");
  EXPECT_FALSE(Line().IsShown());
  EXPECT_EQ(Panel(3), "");
}

TEST_F(PlaceLineTest, HasRoomInTheStatusBar) {
  Read("Eins gilt. Zwei gilt. Drei gilt. Vier gilt.");
  Hear("Zwei");
  EXPECT_TRUE(WaitUntil([this] { return Line().GetSize().x >= form.FromDIP(60); }));
  EXPECT_TRUE(
      WaitUntil([this] { return form.GetStatusBar()->GetScreenRect().Contains(Line().GetScreenRect()); }));
}

TEST_F(PlaceLineTest, MovesTheVoice) {
  Read("Eins gilt. Zwei gilt. Drei gilt. Vier gilt.");
  Hear("Zwei");
  Line().SetValue(4);
  wxScrollEvent event(wxEVT_SCROLL_CHANGED, Line().GetId(), 4);
  event.SetEventObject(&Line());
  Line().ProcessWindowEvent(event);
  EXPECT_EQ(voice.SpokenText(), "Vier gilt. ");
}

TEST_F(PlaceLineTest, TakesTheKeyboardAndGivesItBack) {
  Read("Eins gilt. Zwei gilt. Drei gilt. Vier gilt.");
  Hear("Zwei");
  Choose("Aktion", "Lesestelle verschieben");
  EXPECT_TRUE(WaitUntil([this] { return Line().HasFocus(); }));
  window.RunCommand("Stop");
  EXPECT_TRUE(WaitUntil([this] { return !Line().HasFocus(); }));
}

#ifdef __WXGTK__

TEST_F(PlaceLineTest, IsASliderWithNameAndValueToAScreenReader) {
  Read("Eins gilt. Zwei gilt. Drei gilt. Vier gilt.");
  Hear("Drei");
  AtkObject* const object = gtk_widget_get_accessible(static_cast<GtkWidget*>(Line().GetHandle()));
  EXPECT_EQ(atk_object_get_role(object), ATK_ROLE_SLIDER);
  EXPECT_STREQ(atk_object_get_name(object), "Satz, der vorgelesen wird");
  ASSERT_TRUE(ATK_IS_VALUE(object));
  gdouble value = 0;
  gchar* text = nullptr;
  atk_value_get_value_and_text(ATK_VALUE(object), &value, &text);
  g_free(text);
  EXPECT_EQ(value, 3);
}

TEST_F(PlaceLineTest, IsLowerThanTheStatusBar) {
  const int before = form.GetStatusBar()->GetSize().y;
  Read("Eins gilt. Zwei gilt.");
  Hear("Zwei");
  EXPECT_LE(Line().GetBestSize().y, before);
  EXPECT_EQ(form.GetStatusBar()->GetSize().y, before);
}

#endif

}  // namespace
}  // namespace lorelin
