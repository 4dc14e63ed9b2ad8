#include <wx/checkbox.h>
#include <wx/dataview.h>
#include <wx/notebook.h>
#include <wx/radiobut.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include "tests/gui/FormFixture.h"
#include "tests/gui/findControl.h"

namespace lorelin {
namespace {

class PronunciationForms : public FormFixture {
 protected:
  PronunciationForms() {
    pronunciationDialogs.SetParent(&form);
    window.Load();
    window.Textmode();
  }
  void InMenu(const char* menu, const char* caption, const char* name,
              const std::function<void(wxDialog&)>& act) {
    InDialog([&] { Choose(menu, caption); }, name, act);
  }
  static void Type(wxWindow& dialog, const char* name, const char* text) {
    FindControl<wxTextCtrl>(dialog, name).SetValue(ToWx(text));
  }
  static std::string Shown(wxWindow& dialog, const char* name) {
    return FromWx(FindControl<wxTextCtrl>(dialog, name).GetValue());
  }
  const WordList& Words() { return spoken.pronunciations.Words(); }
};

TEST_F(PronunciationForms, TheMenuShowsWhetherNumbersAreSpelledOut) {
  EXPECT_TRUE(Entry("Extras", "Zahlen und Abkürzungen ausschreiben").IsChecked());
  Choose("Extras", "Zahlen und Abkürzungen ausschreiben");
  EXPECT_FALSE(Entry("Extras", "Zahlen und Abkürzungen ausschreiben").IsChecked());
  EXPECT_EQ(settings.Get(setting::SpellOut), "0");
}

TEST_F(PronunciationForms, ASelectedWordGetsAPronunciation) {
  document.SetText("Die VBG zahlt.");
  form.Editor().SetSelection(4, 7);
  InMenu("Bearbeiten", "Aussprache ändern …", "frmPronunciation", [&](wxDialog& dialog) {
    EXPECT_EQ(Shown(dialog, "txtWritten"), "VBG");
    EXPECT_TRUE(FindControl<wxRadioButton>(dialog, "optWhole").GetValue());
    Type(dialog, "txtSpoken", "Vau Be Ge");
    PressButton(dialog, "Probe hören");
    EXPECT_TRUE(calls.Has("Probe.Speak"));
    PressButton(dialog, "OK");
  });
  ASSERT_EQ(Words().size(), 1U);
  EXPECT_EQ(Words()[0], (OwnWord{"VBG", "Vau Be Ge", true, true}));
  window.RunCommand("SpeakDocument");
  EXPECT_EQ(voice.SpokenText(), " Die Vau Be Ge zahlt. ");
}

TEST_F(PronunciationForms, WhatCannotBeKeptIsSaidInTheDialog) {
  InMenu("Bearbeiten", "Aussprache ändern …", "frmPronunciation", [&](wxDialog& dialog) {
    Type(dialog, "txtWritten", "a=b");
    PressButton(dialog, "OK");
    EXPECT_TRUE(dialog.IsShown());
    EXPECT_NE(FromWx(FindControl<wxStaticText>(dialog, "lblProblem").GetLabel()).find("Gleichheitszeichen"),
              std::string::npos);
    PressButton(dialog, "Abbrechen");
  });
  EXPECT_TRUE(Words().empty());
}

TEST_F(PronunciationForms, AFullDiskIsToldInABox) {
  files.error = ErrorNumber::DiskFull;
  InMenu("Bearbeiten", "Aussprache ändern …", "frmPronunciation", [&](wxDialog& dialog) {
    Type(dialog, "txtWritten", "VBG");
    PressButton(dialog, "OK");
  });
  ASSERT_EQ(messageBoxes.boxes.size(), 1U);
  EXPECT_NE(messageBoxes.boxes[0].text.find("nicht gespeichert"), std::string::npos);
}

TEST_F(PronunciationForms, TheListShowsChangesAndRemovesWords) {
  spoken.pronunciations.SaveWords({{"VBG", "Vau Be Ge", true, true}, {"Straßb", "Straßburg", false, false}});
  InMenu("Extras", "Eigene Aussprachen …", "frmPronunciations", [&](wxDialog& dialog) {
    auto& list = FindControl<wxDataViewListCtrl>(dialog, "lstWords");
    ASSERT_EQ(list.GetItemCount(), 2);
    EXPECT_EQ(FromWx(list.GetTextValue(0, 0)), "Straßb");
    EXPECT_EQ(FromWx(list.GetTextValue(0, 2)), "Wortanfang");
    wxWindow& page = *list.GetParent();
    list.SelectRow(1);
    wxDataViewEvent selected(wxEVT_DATAVIEW_SELECTION_CHANGED, &list, list.GetSelection());
    list.ProcessWindowEvent(selected);
    InDialog([&] { PressButton(page, "Ändern …"); }, "frmPronunciation",
             [&](wxDialog& word) {
               EXPECT_EQ(Shown(word, "txtWritten"), "VBG");
               Type(word, "txtSpoken", "Berufsgenossenschaft");
               PressButton(word, "OK");
             });
    EXPECT_EQ(WordFor(Words(), "VBG").spoken, "Berufsgenossenschaft");
    ASSERT_EQ(list.GetItemCount(), 2);
    list.SelectRow(0);
    list.ProcessWindowEvent(selected);
    PressButton(page, "Entfernen");
    EXPECT_EQ(list.GetItemCount(), 1);
    FindControl<wxCheckBox>(dialog, "chkEmoji").SetValue(false);
    wxCommandEvent clicked(wxEVT_CHECKBOX);
    clicked.SetInt(0);
    FindControl<wxCheckBox>(dialog, "chkEmoji").ProcessWindowEvent(clicked);
    dialog.EndModal(wxID_CLOSE);
  });
  EXPECT_EQ(Words().size(), 1U);
  EXPECT_FALSE(spoken.pronunciations.SpeaksEmoji());
}

TEST_F(PronunciationForms, ARuleIsTriedBeforeItIsKept) {
  const std::size_t examples = spoken.pronunciations.Rules().size();
  InMenu("Extras", "Eigene Aussprachen …", "frmPronunciations", [&](wxDialog& dialog) {
    wxWindow& page = *FindControl<wxDataViewListCtrl>(dialog, "lstRules").GetParent();
    InDialog([&] { PressButton(page, "Hinzufügen …"); }, "frmTextRule",
             [&](wxDialog& rule) {
               Type(rule, "txtPattern", "Wien \\[");
               Type(rule, "txtReplacement", "<");
               EXPECT_EQ(Shown(rule, "txtResult"), "<1] hat rund 2 Millionen Einwohner (Stand 2024).");
               Type(rule, "txtPattern", "(");
               EXPECT_EQ(Shown(rule, "txtResult"), "Eine Klammer ist nicht geschlossen.");
               wxCommandEvent ok(wxEVT_BUTTON, wxID_OK);
               rule.ProcessWindowEvent(ok);
               EXPECT_TRUE(rule.IsShown()) << "a wrong rule is not taken";
               Type(rule, "txtPattern", "Wien");
               rule.ProcessWindowEvent(ok);
             });
    dialog.EndModal(wxID_CLOSE);
  });
  ASSERT_EQ(spoken.pronunciations.Rules().size(), examples + 1);
  EXPECT_EQ(spoken.pronunciations.Rules().back(), (ReadingRule{true, "Wien", "<"}));
}

}  // namespace
}  // namespace lorelin
