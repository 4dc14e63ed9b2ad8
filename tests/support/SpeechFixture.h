#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "base/paths.h"
#include "speech/SpeechModules.h"
#include "tests/support/FakeDirectSS.h"
#include "tests/support/FakePorts.h"
#include "tests/support/FakeRegistry.h"
#include "tests/support/TemporaryFolder.h"

namespace lorelin {

// The speaking part of the program on fakes, with a program folder of its own.
class SpeechFixture : public testing::Test {
 protected:
  void Set(const SettingKey& key, std::string_view text) { settings.Save(key, text); }
  std::string Spoken(std::string text) {
    speech.Speak(text, false, "-1", false);
    return voice.SpokenText();
  }
  void RegisterFilter(const std::string& name, FakeAutomation::Object object) {
    const std::string key = "Software\\VB and VBA Program Settings\\Lorelin\\Extensions\\" + name;
    registry.WriteValue(RegistryHive::CurrentUser, key, "Active", {RegistryType::String, "true"});
    registry.WriteValue(RegistryHive::CurrentUser, key, "ObjectName", {RegistryType::String, name});
    automation.objects[name] = std::move(object);
  }

  TemporaryFolder folder;
  CallLog calls;
  FakeLog log;
  FakeDirectSS voice{"Voice", calls};
  FakeDirectSS voice2{"Voice2", calls};
  FakeDocumentEditor document{calls};
  FakeStatusBar statusBar;
  FakeMessageBoxes messageBoxes;
  FakeEventPump pump;
  FakeClock clock;
  FakeFileSearch fileSearch;
  FakeRegistry registry;
  FakeAutomation automation;
  FakeFileWriter files;
  FakeLog runLog;
  FakeForegroundWindow foreground;
  FakeShell shell;
  FakeProgramLauncher launcher;
  FakeDownloader downloader;
  SystemPorts system{registry,   files,      fileSearch, clock,    log,       runLog,
                     automation, foreground, shell,      launcher, downloader};
  SpeechModules spoken{{.system = system,
                        .voice = voice,
                        .voice2 = voice2,
                        .document = document,
                        .statusBar = statusBar,
                        .messageBoxes = messageBoxes,
                        .pump = pump,
                        .programFolder = folder.Path()}};
  StartupState& startup = spoken.startup;
  SettingsStore& settings = spoken.settings;
  ModAddin& extensions = spoken.extensions;
  ModSpeak& speech = spoken.speech;
};

}  // namespace lorelin
