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

  // Opens a dialog by its task and acts on it while it is shown; it has to close by that.
  void InDialog(const std::string& task, const char* name, const std::function<void(wxDialog&)>& act) {
    bool acted = false;
    wxTimer timer;
    timer.Bind(wxEVT_TIMER, [&](wxTimerEvent&) {
      auto* const dialog = dynamic_cast<wxDialog*>(wxWindow::FindWindowByName(name));
      if (dialog == nullptr || !dialog->IsShown() || acted) return;
      acted = true;
      timer.Stop();
      act(*dialog);
      if (dialog->IsModal()) {
        ADD_FAILURE() << "still open: " << name;
        dialog->EndModal(wxID_CANCEL);
      }
    });
    timer.Start(10);
    PressTask(task);
    ASSERT_TRUE(WaitUntil([&] { return acted && wxWindow::FindWindowByName(name) == nullptr; }));
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
    EXPECT_FALSE(voice.SpokenText().empty());
    EXPECT_EQ(Stored(*which.key), "(fehlt)");
    PressButton(dialog, "Abbrechen");
  });
  EXPECT_EQ(Stored(*which.key), "(fehlt)");
}

INSTANTIATE_TEST_SUITE_P(Voice, SliderForm,
                         testing::Values(SliderCase{"Lautstärke ändern", "frmVolume", &setting::Volume, 100},
                                         SliderCase{"Geschwindigkeit ändern", "frmSpeed", &setting::Speed,
                                                    60},
                                         SliderCase{"Helligkeit ändern", "frmPitch", &setting::Pitch, 60}),
                         [](const auto& info) { return std::string(info.param.form); });

}  // namespace
}  // namespace lorelin
