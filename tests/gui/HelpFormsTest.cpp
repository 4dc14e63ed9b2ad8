#include <wx/radiobut.h>
#include <wx/stattext.h>
#include <wx/timer.h>

#include "base/version.h"
#include "desktop/frmAbout.h"
#include "desktop/frmSettings.h"
#include "desktop/frmSurvey.h"
#include "tests/gui/FormFixture.h"
#include "tests/gui/findControl.h"

namespace lorelin {
namespace {

class HelpForms : public FormFixture {
 protected:
  void InSettings(const std::function<void(wxDialog&)>& act) {
    InDialog([this] { Choose("Extras", "Einstellungen"); }, "frmSettings", act);
  }
  std::string Stored(const char* key) { return settings.GetSetting("settings", key, "(fehlt)"); }
  static wxRadioButton& Option(wxDialog& dialog, int index) {
    auto* button = &FindControl<wxRadioButton>(dialog, "optBeimStart");
    for (; index > 0; --index) button = button->GetNextInGroup();
    return *button;
  }
};

TEST_F(HelpForms, SettingsCarryEveryControlToItsKeyAndBack) {
  const std::pair<const char*, const char*> checks[] = {{"chkAllowRead", "VTSAllowRead"},
                                                        {"chkAllowVTS", "VTSAllow"},
                                                        {"chkVTSAllowDownload", "VTSAllowDownload"},
                                                        {"chkReadTitleOnAppChange", "ReadTitleOnAppChange"},
                                                        {"chkClipspeech", "ReadClipboardOnChange"}};
  for (const auto& [name, key] : checks) {
    bool before = false;
    for (int round = 0; round < 2; ++round) {
      InSettings([&](wxDialog& dialog) {
        auto& box = FindControl<wxCheckBox>(dialog, name);
        if (round > 0) {
          EXPECT_NE(box.GetValue(), before) << name;
        }
        before = box.GetValue();
        box.SetValue(!before);
        PressButton(dialog, "Übernehmen");
      });
      EXPECT_EQ(Stored(key), before ? "0" : "1") << name;
    }
  }
}

TEST_F(HelpForms, SettingsStoreTexts) {
  InSettings([](wxDialog& dialog) {
    FindControl<wxTextCtrl>(dialog, "txtPrefix").SetValue(ToWx("Hört, hört: "));
    FindControl<wxTextCtrl>(dialog, "txtSuffix").SetValue("Ende.");
    PressButton(dialog, "Übernehmen");
  });
  EXPECT_EQ(settings.Get(setting::Prefix), "Hört, hört: ");
  EXPECT_EQ(settings.Get(setting::Suffix), "Ende.");
  InSettings([](wxDialog& dialog) {
    EXPECT_EQ(FromWx(FindControl<wxTextCtrl>(dialog, "txtPrefix").GetValue()), "Hört, hört: ");
    PressButton(dialog, "Abbrechen");
  });
}

TEST_F(HelpForms, SettingsStoreTheStartOption) {
  const std::pair<const char*, const char*> stored[] = {{"1", "0"}, {"0", "0"}, {"0", "1"}};
  for (const int option : {2, 1, 0}) {
    InSettings([&](wxDialog& dialog) {
      Option(dialog, option).SetValue(true);
      PressButton(dialog, "Übernehmen");
    });
    EXPECT_EQ(Stored("ShowWB"), stored[option].first);
    EXPECT_EQ(Stored("ShowLastDoc"), stored[option].second);
    InSettings([&](wxDialog& dialog) {
      EXPECT_TRUE(Option(dialog, option).GetValue());
      PressButton(dialog, "Abbrechen");
    });
  }
}

TEST_F(HelpForms, SettingsLeaveAStartThatIsNoneOfTheirsAlone) {
  settings.SaveSetting("settings", "ShowWB", "ja");
  InSettings([](wxDialog& dialog) {
    for (int option = 0; option < 3; ++option) EXPECT_FALSE(Option(dialog, option).GetValue()) << option;
    PressButton(dialog, "Übernehmen");
  });
  EXPECT_EQ(Stored("ShowWB"), "ja");
  EXPECT_EQ(Stored("ShowLastDoc"), "(fehlt)");
  InSettings([](wxDialog& dialog) {
    Option(dialog, 1).SetValue(true);
    PressButton(dialog, "Übernehmen");
  });
  EXPECT_EQ(Stored("ShowWB"), "0");
}

TEST_F(HelpForms, SettingsSayWhenNothingWasStoredAndStayOpen) {
  registry.writesUntilFull = 0;
  InSettings([this](wxDialog& dialog) {
    FindControl<wxTextCtrl>(dialog, "txtPrefix").SetValue("vor");
    PressButton(dialog, "Übernehmen");
    EXPECT_TRUE(dialog.IsModal());
    ASSERT_EQ(messageBoxes.boxes.size(), 1U);
    EXPECT_EQ(messageBoxes.boxes[0].title, "Fehler");
    EXPECT_EQ(settings.Get(setting::Prefix), "");
    registry.writesUntilFull = -1;
    PressButton(dialog, "Übernehmen");
  });
  EXPECT_EQ(settings.Get(setting::Prefix), "vor");
}

TEST_F(HelpForms, SettingsSayWhenTheyLastOnlyForTheRun) {
  registry.lasting = false;
  InSettings([](wxDialog& dialog) { PressButton(dialog, "Übernehmen"); });
  ASSERT_EQ(messageBoxes.boxes.size(), 1U);
  EXPECT_NE(messageBoxes.boxes[0].text.find("nicht gespeichert"), std::string::npos);
}

TEST_F(HelpForms, SettingsTellOfARestartForTheTitlesOnly) {
  InSettings([](wxDialog& dialog) {
    FindControl<wxCheckBox>(dialog, "chkClipspeech").SetValue(true);
    PressButton(dialog, "Übernehmen");
  });
  EXPECT_TRUE(messageBoxes.boxes.empty());
  InSettings([](wxDialog& dialog) {
    FindControl<wxCheckBox>(dialog, "chkReadTitleOnAppChange").SetValue(true);
    PressButton(dialog, "Übernehmen");
  });
  ASSERT_EQ(messageBoxes.boxes.size(), 1U);
  EXPECT_EQ(messageBoxes.boxes[0].title, "Hinweis");
}

TEST_F(HelpForms, SettingsStoreNothingWhenTheyAreCancelled) {
  InSettings([](wxDialog& dialog) {
    FindControl<wxCheckBox>(dialog, "chkAllowVTS").SetValue(false);
    PressButton(dialog, "Abbrechen");
  });
  EXPECT_EQ(Stored("VTSAllow"), "(fehlt)");
}

TEST_F(HelpForms, SettingsShowOnePageAtATime) {
  InSettings([this](wxDialog& dialog) {
    EXPECT_TRUE(FindControl<wxTextCtrl>(dialog, "txtPrefix").IsShownOnScreen());
    EXPECT_FALSE(FindControl<wxCheckBox>(dialog, "chkAllowVTS").IsShownOnScreen());
    PressButton(FindControl<wxPanel>(dialog, "picBackground"), "Taskscripts");
    EXPECT_FALSE(FindControl<wxTextCtrl>(dialog, "txtPrefix").IsShownOnScreen());
    EXPECT_TRUE(FindControl<wxCheckBox>(dialog, "chkAllowVTS").IsShownOnScreen());
    PressButton(FindControl<wxPanel>(dialog, "picBackground"), "Erweiterungen");
    PressButton(*FindControl<wxButton>(dialog, "Label11").GetParent(),
                "Klicken Sie hier um die Konfiguration für die Erweiterungen aufzurufen.");
    PressButton(dialog, "Abbrechen");
  });
  EXPECT_EQ(shell.opened, std::vector<std::string>{"XMGR.exe in " + folder.Path() + " as 0"});
}

TEST_F(HelpForms, SettingsColourTheLabelUnderTheMouse) {
  InSettings([](wxDialog& dialog) {
    auto& column = FindControl<wxPanel>(dialog, "picBackground");
    wxWindow& label = *column.GetChildren()[1];
    wxMouseEvent enter(wxEVT_ENTER_WINDOW);
    label.ProcessWindowEvent(enter);
    EXPECT_EQ(label.GetForegroundColour(), wxColour(255, 255, 0));
    wxMouseEvent move(wxEVT_MOTION);
    column.ProcessWindowEvent(move);
    EXPECT_NE(label.GetForegroundColour(), wxColour(255, 255, 0));
    PressButton(dialog, "Abbrechen");
  });
}

TEST_F(HelpForms, AboutTellsItsVersionAndClosesByAnyKey) {
  EXPECT_EQ(VersionLabel(1, 2), "Version 1.2.1");
  EXPECT_EQ(VersionLabel(kVersionMajor, kVersionMinor), std::string("Version ") + kVersionText);
  InDialog([this] { Choose("?", "Über Lorelin"); }, "frmAbout",
           [](wxDialog& dialog) {
             EXPECT_EQ(FromWx(FindControl<wxStaticText>(dialog, "lblVersion").GetLabel()),
                       VersionLabel(kVersionMajor, kVersionMinor));
             wxKeyEvent key(wxEVT_CHAR_HOOK);
             dialog.ProcessWindowEvent(key);
           });
}

TEST_F(HelpForms, TheSurveyKnowsItsAnswers) {
  const std::pair<const char*, SurveyAnswer> answers[] = {
      {"Ja", SurveyAnswer::Yes}, {"Nein", SurveyAnswer::No}, {"Später erinnern", SurveyAnswer::Later}};
  for (const auto& [caption, answer] : answers) {
    SurveyAnswer given = SurveyAnswer::Later;
    InDialog([&] { given = helpDialogs.AskForSurvey(); }, "frmSurvey",
             [caption = caption](wxDialog& dialog) { PressButton(dialog, caption); });
    EXPECT_EQ(given, answer);
  }
}

TEST_F(HelpForms, TheWindowComesBackWhereItWas) {
  window.Load();
  form.SetSize(wxRect(60, 70, 900, 640));
  ASSERT_TRUE(WaitUntil([this] { return form.GetSize() == wxSize(900, 640); }));
  const std::string placement = form.Placement();
  form.SetSize(wxRect(10, 10, 700, 500));
  form.Place(placement);
  EXPECT_TRUE(WaitUntil([this] { return form.GetSize() == wxSize(900, 640); }));
  form.Place("5000 5000 900 640 0 100");
  form.Place("Unsinn");
  EXPECT_EQ(form.GetSize(), wxSize(900, 640));
}

}  // namespace
}  // namespace lorelin
