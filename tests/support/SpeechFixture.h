#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "base/paths.h"
#include "speech/SpeechModules.h"
#include "tests/support/FakeSystem.h"

namespace lorelin {

// The speaking part of the program on fakes, with a program folder of its own.
class SpeechFixture : public testing::Test, protected FakeSystem {
 protected:
  void Set(const SettingKey& key, std::string_view text) { settings.Save(key, text); }
  std::string Spoken(std::string text) {
    speech.Speak(text, false, "-1", false);
    return voice.SpokenText();
  }

  FakeDocumentEditor document{calls};
  FakeStatusBar statusBar;
  FakeEventPump pump;
  SpeechModules spoken{{.system = system,
                        .voice = voice,
                        .voice2 = voice2,
                        .document = document,
                        .statusBar = statusBar,
                        .messageBoxes = messageBoxes,
                        .pump = pump,
                        .programFolder = folder.Path(),
                        .settingsFolder = folder.File("settings")}};
  StartupState& startup = spoken.startup;
  SettingsStore& settings = spoken.settings;
  ModAddin& extensions = spoken.extensions;
  ModSpeak& speech = spoken.speech;
};

}  // namespace lorelin
