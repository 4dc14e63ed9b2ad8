#pragma once

#include <string>

#include "base/StartupState.h"
#include "extensions/modAddin.h"
#include "ports/SystemPorts.h"
#include "settings/SettingsStore.h"
#include "speech/modSpeak.h"

namespace lorelin {

// What every front end speaks with, in the order in which the one needs the other.
struct SpeechModules {
  // What it works with; it owns none of it.
  struct Edges {
    SystemPorts system;
    DirectSS& voice;
    DirectSS& voice2;
    DocumentEditor& document;
    StatusBar& statusBar;
    MessageBoxes& messageBoxes;
    EventPump& pump;
    std::string programFolder;  // temporary WAV files lie below it
  };

  explicit SpeechModules(const Edges& edges)
      : settings(edges.system.registry),
        extensions(edges.system.registry, edges.system.files, edges.system.automation, edges.system.log),
        speech({.voice = edges.voice,
                .voice2 = edges.voice2,
                .document = edges.document,
                .statusBar = edges.statusBar,
                .messageBoxes = edges.messageBoxes,
                .pump = edges.pump,
                .clock = edges.system.clock,
                .fileSearch = edges.system.fileSearch,
                .log = edges.system.log,
                .settings = settings,
                .extensions = extensions,
                .startup = startup,
                .programFolder = edges.programFolder}) {}

  StartupState startup;
  SettingsStore settings;
  ModAddin extensions;
  ModSpeak speech;
};

}  // namespace lorelin
