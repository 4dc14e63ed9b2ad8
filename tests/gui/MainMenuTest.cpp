#include <cctype>
#include <set>

#include "desktop/frmFind.h"
#include "tests/gui/FormFixture.h"
#include "tests/gui/findControl.h"

#ifdef __WXGTK__
#include <gtk/gtk.h>
#endif

namespace lorelin {
namespace {

class MainMenuTest : public FormFixture {
 protected:
  // As people see it: captions without access keys, "-" for a separator.
  static std::vector<std::string> Captions(const wxMenu& menu) {
    std::vector<std::string> captions;
    for (const wxMenuItem* const item : menu.GetMenuItems())
      captions.push_back(item->IsSeparator() ? "-" : FromWx(item->GetItemLabelText()));
    return captions;
  }
  const wxMenu& MenuAt(std::size_t index) { return *form.GetMenuBar()->GetMenu(index); }
  void Refresh() { form.UpdateWindowUI(wxUPDATE_UI_RECURSE); }
  bool Offers(const char* menu, const char* caption) {
    Refresh();
    for (std::size_t i = 0; i < form.GetMenuBar()->GetMenuCount(); ++i)
      form.GetMenuBar()->GetMenu(i)->UpdateUI();
    return Entry(menu, caption).IsEnabled();
  }
};

TEST_F(MainMenuTest, HasTheseEntries) {
  using Texts = std::vector<std::string>;
  EXPECT_EQ(Captions(MenuAt(0)),
            (Texts{"Neu", "Öffnen", "Speichern", "Speichern unter", "-", "Exportieren",
                   "Als Tondatei exportieren …", "Tondateien in Arbeit …", "-", "Buch oder Dokument öffnen …",
                   "Adresse öffnen …", "Zuletzt verwendet", "Privates löschen …", "-", "Beenden"}));
  EXPECT_EQ(Captions(MenuAt(1)), (Texts{"Ausschneiden", "Kopieren", "Einfügen", "Löschen", "-", "Rückgängig",
                                        "Wiederherstellen", "-", "Alles markieren", "Suchen …",
                                        "Weitersuchen", "Ersetzen …", "-", "Aussprache ändern …"}));
  EXPECT_EQ(Captions(MenuAt(2)),
            (Texts{"Sprechen", "Stop", "Pause", "-", "Text ab Cursorposition lesen", "Ab hier vorlesen",
                   "Auswahl vorlesen", "Weiterlesen", "Beim Vorlesen", "Schlafzeit", "-", "Stimme wählen",
                   "Lautstärke ändern", "Geschwindigkeit ändern", "Helligkeit ändern"}));
  EXPECT_EQ(Captions(MenuAt(3)),
            (Texts{"Textmodus", "Interaktivmodus", "-", "Mitlesen", "-", "Lesedarstellung …",
                   "Schrift größer", "Schrift kleiner", "Schrift normal"}));
  EXPECT_EQ(Captions(MenuAt(4)), (Texts{"Einstellungen", "Zahlen und Abkürzungen ausschreiben",
                                        "Eigene Aussprachen …", "Erweiterungen verwalten"}));
  EXPECT_EQ(Captions(MenuAt(5)), (Texts{"Hilfe", "Weitere Stimmen herunterladen", "Fehler berichten", "-",
                                        "Weitere Informationen", "Aktualisierungen suchen", "Über Lorelin"}));
}

TEST_F(MainMenuTest, OpensEveryMenuByAKeyOfItsOwn) {
  std::vector<std::string> titles;
  std::set<char> keys;
  const wxMenuBar& bar = *form.GetMenuBar();
  for (std::size_t i = 0; i < bar.GetMenuCount(); ++i) {
    const std::string title = FromWx(bar.GetMenuLabel(i));
    titles.push_back(FromWx(bar.GetMenuLabelText(i)));
    ASSERT_NE(title.find('&'), std::string::npos) << title;
    keys.insert(static_cast<char>(std::tolower(title[title.find('&') + 1])));
  }
  EXPECT_EQ(titles, (std::vector<std::string>{"Datei", "Bearbeiten", "Aktion", "Ansicht", "Extras", "?"}));
  EXPECT_EQ(keys.size(), titles.size());
}

TEST_F(MainMenuTest, ShowsTheModesAsAChoiceOfOne) {
  EXPECT_EQ(Entry("Ansicht", "Textmodus").GetKind(), wxITEM_RADIO);
  EXPECT_EQ(Entry("Ansicht", "Interaktivmodus").GetKind(), wxITEM_RADIO);
  for (int round = 0; round < 2; ++round) {
    window.Textmode();
    EXPECT_TRUE(Entry("Ansicht", "Textmodus").IsChecked());
    EXPECT_FALSE(Entry("Ansicht", "Interaktivmodus").IsChecked());
    window.InteractiveMode();
    EXPECT_FALSE(Entry("Ansicht", "Textmodus").IsChecked());
    EXPECT_TRUE(Entry("Ansicht", "Interaktivmodus").IsChecked());
  }
}

TEST_F(MainMenuTest, GreysWhatCanDoNothing) {
  window.Load();
  window.Textmode();
  for (const auto* const caption : {"Stop", "Pause", "Auswahl vorlesen"})
    EXPECT_FALSE(Offers("Aktion", caption)) << caption;
#ifdef __WXGTK__  // the editor of Windows below Wine counts the empty text it begins with
  EXPECT_FALSE(Offers("Bearbeiten", "Rückgängig"));
#endif
  form.Editor().WriteText("Guten Tag");
  EXPECT_TRUE(Offers("Bearbeiten", "Rückgängig"));
  EXPECT_FALSE(Offers("Bearbeiten", "Wiederherstellen"));
  Choose("Bearbeiten", "Rückgängig");
#ifdef __WXGTK__
  EXPECT_FALSE(Offers("Bearbeiten", "Rückgängig"));
#endif
  EXPECT_TRUE(Offers("Bearbeiten", "Wiederherstellen"));
  Choose("Bearbeiten", "Wiederherstellen");
  form.Editor().SelectAll();
  EXPECT_TRUE(Offers("Aktion", "Auswahl vorlesen"));
  Choose("Aktion", "Auswahl vorlesen");
  EXPECT_EQ(voice.SpokenText(), " Guten Tag ");
  EXPECT_TRUE(Offers("Aktion", "Stop"));
  EXPECT_TRUE(Offers("Aktion", "Pause"));
  voice.Finish();
  voice2.Finish();
  EXPECT_FALSE(Offers("Aktion", "Stop"));
}

TEST_F(MainMenuTest, OffersNothingOfAHiddenDocument) {
  window.Load();
  window.Textmode();
  form.Editor().WriteText("Guten Tag");
  form.Editor().SelectAll();
  window.InteractiveMode();
  EXPECT_FALSE(Offers("Aktion", "Auswahl vorlesen"));
  EXPECT_FALSE(Offers("Bearbeiten", "Rückgängig"));
}

#ifdef __WXGTK__

TEST_F(MainMenuTest, ShowsTheKeysThatBelongToTheEditor) {
  const std::pair<const char*, guint> keys[] = {
      {"Ausschneiden", GDK_KEY_x}, {"Kopieren", GDK_KEY_c}, {"Einfügen", GDK_KEY_v}};
  for (const auto& [caption, key] : keys) {
    wxMenuItem& entry = Entry("Bearbeiten", caption);
    guint shown = 0;
    GdkModifierType modifiers{};
    gtk_accel_label_get_accel(GTK_ACCEL_LABEL(gtk_bin_get_child(GTK_BIN(entry.GetMenuItem()))), &shown,
                              &modifiers);
    EXPECT_EQ(shown, key) << caption;
    EXPECT_EQ(modifiers, GDK_CONTROL_MASK) << caption;
    EXPECT_EQ(entry.GetAccel(), nullptr) << caption;
  }
}

// The real way of a key, through the window's accelerators.
TEST_F(MainMenuTest, ZoomsByTheNumberPad) {
  window.Load();
  window.Textmode();
  const auto height = [this] {
    pump.WaitForEvents();
    return form.Editor().PositionToCoords(form.Editor().XYToPosition(0, 1)).y;
  };
  form.Editor().SetText("eins\nzwei");
  ASSERT_TRUE(WaitUntil([&] { return height() > 0; }));
  window.RunCommand("UsualSize");
  // The text is laid out anew piece by piece.
  int before = height();
  int rounds = 0;
  ASSERT_TRUE(WaitUntil([&] {
    const int now = height();
    rounds = now == before ? rounds + 1 : 0;
    before = now;
    return rounds == 50;
  }));
  gtk_accel_groups_activate(G_OBJECT(form.GetHandle()), GDK_KEY_KP_Add, GDK_CONTROL_MASK);
  EXPECT_TRUE(WaitUntil([&] { return height() > before; }));
  gtk_accel_groups_activate(G_OBJECT(form.GetHandle()), GDK_KEY_KP_0, GDK_CONTROL_MASK);
  EXPECT_TRUE(WaitUntil([&] { return height() == before; }));
}

#endif

class FindForm : public MainMenuTest {};

TEST_F(FindForm, NeverCoversWhatItFound) {
  window.Load();
  window.Textmode();
  std::string text;
  for (int line = 0; line < 60; ++line) text += "Zeile\n";
  form.Editor().SetText(text + "Nadel\n");
  FrmFind find(&form, form.Editor(), form.Browser());
  find.Open(false);
  ASSERT_TRUE(WaitUntil([&] { return find.IsShownOnScreen(); }));
  FindControl<wxTextCtrl>(find, "txtWanted").SetValue("Zeile");
  for (int hit = 0; hit < 40; ++hit) {
    PressButton(find, "Weitersuchen");
    EXPECT_TRUE(WaitUntil([&] {
      return !find.GetScreenRect().Intersects(form.Editor().SelectionOnScreen());
    })) << hit;
  }
  FindControl<wxTextCtrl>(find, "txtWanted").SetValue("fehlt");
  PressButton(find, "Weitersuchen");
  EXPECT_EQ(FromWx(FindControl<wxStaticText>(find, "lblResult").GetLabel()), "Nicht gefunden.");
}

}  // namespace
}  // namespace lorelin
