#include <wx/choice.h>
#include <wx/dialog.h>
#include <wx/slider.h>
#include <wx/stattext.h>
#include <wx/timer.h>

#include "tests/gui/FormFixture.h"
#include "tests/gui/findControl.h"

namespace lorelin {
namespace {

class VoiceDialogsForm : public FormFixture {
 protected:
  VoiceDialogsForm() {
    voiceDialogs.SetParent(&form);
    window.Load();
  }

  void InDialog(const std::string& task, const char* name, const std::function<void(wxDialog&)>& act) {
    FormFixture::InDialog([&] { PressTask(task); }, name, act);
  }
  std::string Stored(const SettingKey& key) { return settings.GetSetting(key.section, key.name, "(fehlt)"); }
};

TEST_F(VoiceDialogsForm, StoreAChosenVoiceWithOkOnly) {
  InDialog("Stimme wählen", "frmVoice", [](wxDialog& dialog) {
    EXPECT_EQ(FromWx(dialog.GetTitle()), "Stimme wählen");
    FindControl<wxChoice>(dialog, "cmbVoice").SetSelection(0);
    PressButton(dialog, "Abbrechen");
  });
  EXPECT_EQ(Stored(setting::Voice), "(fehlt)");
  InDialog("Stimme wählen", "frmVoice", [](wxDialog& dialog) {
    FindControl<wxChoice>(dialog, "cmbVoice").SetSelection(0);
    PressButton(dialog, "OK");
  });
  EXPECT_EQ(Stored(setting::Voice), "0");
}

struct SliderCase {
  const char* task;
  const char* form;
  const SettingKey* key;
  int shown;  // at first
};

class SliderForm : public VoiceDialogsForm, public testing::WithParamInterface<SliderCase> {};

TEST_P(SliderForm, StoresTheValueWithOkOnly) {
  const SliderCase& which = GetParam();
  InDialog(which.task, which.form, [&](wxDialog& dialog) {
    auto& slider = FindControl<wxSlider>(dialog, "Slider1");
    EXPECT_EQ(slider.GetValue(), which.shown);
    slider.SetValue(33);
    PressButton(dialog, "Abbrechen");
  });
  EXPECT_EQ(Stored(*which.key), "(fehlt)");
  InDialog(which.task, which.form, [](wxDialog& dialog) {
    FindControl<wxSlider>(dialog, "Slider1").SetValue(33);
    PressButton(dialog, "OK");
  });
  EXPECT_EQ(Stored(*which.key), "33");
}

TEST_P(SliderForm, SpeaksASampleWithoutStoringTheValue) {
  const SliderCase& which = GetParam();
  InDialog(which.task, which.form, [&](wxDialog& dialog) {
    FindControl<wxSlider>(dialog, "Slider1").SetValue(80);
    PressButton(dialog, "Probe hören");
    EXPECT_TRUE(calls.Has("Probe.Speak"));
    EXPECT_FALSE(calls.Has("Voice.Speak"));
    EXPECT_EQ(Stored(*which.key), "(fehlt)");
    PressButton(dialog, "Abbrechen");
  });
  EXPECT_EQ(Stored(*which.key), "(fehlt)");
}

TEST_P(SliderForm, OpensWithTheDefaultForWhatIsNoNumberAndRepairsIt) {
  const SliderCase& which = GetParam();
  settings.Save(*which.key, "schnell");
  InDialog(which.task, which.form, [&](wxDialog& dialog) {
    EXPECT_EQ(FindControl<wxSlider>(dialog, "Slider1").GetValue(), which.shown);
    PressButton(dialog, "OK");
  });
  EXPECT_EQ(Stored(*which.key), std::to_string(which.shown));
}

TEST_F(VoiceDialogsForm, OpenWithTheDefaultVoiceForWhatIsNoNumber) {
  settings.Save(setting::Voice, "Anna");
  InDialog("Stimme wählen", "frmVoice", [](wxDialog& dialog) {
    EXPECT_EQ(FindControl<wxChoice>(dialog, "cmbVoice").GetSelection(), 1);
    PressButton(dialog, "OK");
  });
  EXPECT_EQ(Stored(setting::Voice), "1");
}

INSTANTIATE_TEST_SUITE_P(Voice, SliderForm,
                         testing::Values(SliderCase{"Lautstärke ändern", "frmVolume", &setting::Volume, 100},
                                         SliderCase{"Geschwindigkeit ändern", "frmSpeed", &setting::Speed,
                                                    60},
                                         SliderCase{"Helligkeit ändern", "frmPitch", &setting::Pitch, 60}),
                         [](const auto& info) { return std::string(info.param.form); });

}  // namespace
}  // namespace lorelin
