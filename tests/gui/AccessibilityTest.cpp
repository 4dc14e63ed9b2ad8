#include <gtk/gtk.h>

#include <algorithm>

#include "desktop/frmAbout.h"
#include "desktop/frmFind.h"
#include "desktop/frmLicence.h"
#include "desktop/frmMoreVoices.h"
#include "desktop/frmSlider.h"
#include "desktop/frmSurvey.h"
#include "desktop/frmTask.h"
#include "desktop/frmTaskEditor.h"
#include "desktop/frmVoice.h"
#include "desktop/frmXMGR.h"
#include "tests/gui/FormFixture.h"
#include "tests/support/FakeVoicePorts.h"

namespace lorelin {
namespace {

// What assistive technology is told of every control that takes the focus.
class Accessible : public FormFixture {
 protected:
  static std::string NameOf(GtkWidget* widget) {
    AtkObject* const object = gtk_widget_get_accessible(widget);
    if (const gchar* const name = atk_object_get_name(object); name != nullptr && *name != '\0') return name;
    AtkRelationSet* const relations = atk_object_ref_relation_set(object);
    const bool labelled = atk_relation_set_contains(relations, ATK_RELATION_LABELLED_BY) != FALSE;
    g_object_unref(relations);
    return labelled ? "(label)" : "";
  }

  void Look(GtkWidget* widget) {
    if (gtk_widget_get_visible(widget) == FALSE || GTK_IS_MENU_SHELL(widget)) return;
    if (GTK_IS_LABEL(widget)) {
      const guint key = gtk_label_get_mnemonic_keyval(GTK_LABEL(widget));
      if (key != GDK_KEY_VoidSymbol) accessKeys.push_back(key);
    }
    const bool takesFocus =
        gtk_widget_get_can_focus(widget) != FALSE && gtk_widget_is_sensitive(widget) != FALSE;
    // The page names itself, by the title of its document.
    const bool page = std::string_view(G_OBJECT_TYPE_NAME(widget)) == "WebKitWebView";
    if (takesFocus && !page && !GTK_IS_WINDOW(widget) && !GTK_IS_SCROLLED_WINDOW(widget)) {
      ++controls;
      if (NameOf(widget).empty()) nameless.push_back(G_OBJECT_TYPE_NAME(widget));
    }
    // What can be pressed or typed into has to be reachable without a mouse.
    const bool active = GTK_IS_BUTTON(widget) || GTK_IS_ENTRY(widget) || GTK_IS_TEXT_VIEW(widget);
    if (active && gtk_widget_is_sensitive(widget) != FALSE && gtk_widget_get_can_focus(widget) == FALSE &&
        !insideToolbar)
      unreachable.push_back(G_OBJECT_TYPE_NAME(widget) + (" " + NameOf(widget)));
    if (!GTK_IS_CONTAINER(widget)) return;
    const bool before = insideToolbar;
    // The toolbar's commands are all in the menus too.
    insideToolbar =
        insideToolbar || GTK_IS_TOOLBAR(widget) || GTK_IS_TREE_VIEW(widget) || GTK_IS_COMBO_BOX(widget);
    gtk_container_forall(
        GTK_CONTAINER(widget),
        [](GtkWidget* child, gpointer self) { static_cast<Accessible*>(self)->Look(child); }, this);
    insideToolbar = before;
  }

  void Check(wxTopLevelWindow& window, int fewest) {
    window.Show();
    for (int i = 0; i < 10; ++i) pump.WaitForEvents();
    controls = 0;
    nameless.clear();
    unreachable.clear();
    accessKeys.clear();
    Look(static_cast<GtkWidget*>(window.GetHandle()));
    EXPECT_EQ(nameless, std::vector<std::string>{}) << window.GetName();
    EXPECT_EQ(unreachable, std::vector<std::string>{}) << window.GetName();
    EXPECT_GE(controls, fewest) << window.GetName();
    std::sort(accessKeys.begin(), accessKeys.end());
    EXPECT_EQ(std::adjacent_find(accessKeys.begin(), accessKeys.end()), accessKeys.end()) << window.GetName();
  }

  int controls = 0;
  bool insideToolbar = false;
  std::vector<guint> accessKeys;  // of what is shown, menus apart
  std::vector<std::string> nameless;
  std::vector<std::string> unreachable;
};

TEST_F(Accessible, MainWindowInBothModes) {
  window.Load();
  Check(form, 8);
  window.Textmode();
  Check(form, 8);
}

TEST_F(Accessible, DialogsOfNaturalVoices) {
  FakeResumingDownloader downloads;
  FakeChecksums checksums;
  FakeVoiceArchives archives;
  FakeNaturalVoices natural{folder.File("stimmen")};
  VoiceLibrary library({downloads, checksums, archives, natural, files, settings, clock, log});
  FrmMoreVoices list(&form, {library, messageBoxes, pump});
  Check(list, 8);
  FrmLicence licence(&form, "Deutsch – probe (mittel)", "63 MB", "License: CC0");
  Check(licence, 3);
  natural.installed = {{"probe", "/x", {voice.voices.front().name}, "de-de", "medium", true}};
  FrmVoice voiceDialog(&form, VoiceChoice(voice, settings),
                       {.sample = [](std::int32_t) {},
                        .more = [](wxWindow*) { return false; },
                        .natural = [&] { return natural.installed; }});
  Check(voiceDialog, 6);
}

TEST_F(Accessible, DialogsOfTheEditorAndTheVoice) {
  FrmFind find(&form, form.Editor(), form.Browser());
  find.Open(true);
  Check(find, 7);
  FrmVoice voiceDialog(&form, VoiceChoice(voice, settings),
                       {.sample = [](std::int32_t) {}, .more = {}, .natural = {}});
  Check(voiceDialog, 4);
  for (const auto parameter : {VoiceParameter::Volume, VoiceParameter::Speed, VoiceParameter::Pitch}) {
    FrmSlider slider(&form, SliderDialogFor(parameter), settings, [](std::int32_t) {});
    Check(slider, 4);
  }
}

TEST_F(Accessible, SettingsAboutAndSurvey) {
  FrmSettings dialog(&form, {.settings = modSettings,
                             .messageBoxes = messageBoxes,
                             .pictureFile = folder.File("hypertext/farbverlauf.jpg"),
                             .titlesObstacle = [] { return std::string(); },
                             .applied = [] {},
                             .manageExtensions = [] {}});
  Check(dialog, 10);
  for (wxWindow* const label : wxWindow::FindWindowByName("picBackground", &dialog)->GetChildren()) {
    wxCommandEvent press(wxEVT_BUTTON, label->GetId());
    label->ProcessWindowEvent(press);
    Check(dialog, 7);
  }
  FrmAbout about(&form, folder.File("hypertext/farbverlauf.jpg"));
  Check(about, 1);
  FrmSurvey survey(&form);
  Check(survey, 3);
}

TEST_F(Accessible, ScriptEditorAndPicker) {
  auto* const editor = new FrmTaskEditor(&form, {.fileDialogs = fileDialogs,
                                                 .files = files,
                                                 .messageBoxes = messageBoxes,
                                                 .programFolder = folder.Path(),
                                                 .scriptsChanged = [] {},
                                                 .showHelp = [] {}});
  editor->Open();
  Check(*editor, 4);
  Check(dynamic_cast<wxTopLevelWindow&>(editor->Picker()), 3);
  editor->Destroy();
}

TEST_F(Accessible, ExtensionManager) {
  ClsRegistryAccess access(registry, files);
  Registrations registrations(access);
  (void)registrations.Add("A", "org.test.A");
  auto* const manager = new FrmXMGR({.registrations = registrations,
                                     .automation = automation,
                                     .messageBoxes = messageBoxes,
                                     .shipped = {}});
  Check(*manager, 4);
  manager->Destroy();
}

}  // namespace
}  // namespace lorelin
