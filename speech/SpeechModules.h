#pragma once

#include <memory>
#include <string>

#include "base/StartupState.h"
#include "extensions/modAddin.h"
#include "ports/SystemPorts.h"
#include "settings/SettingsStore.h"
#include "speech/Pronunciations.h"
#include "speech/SpelledSpeech.h"
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
    std::string programFolder;   // temporary WAV files lie below it
    std::string settingsFolder;  // holds the user's own pronunciations; "" for none
  };

  explicit SpeechModules(const Edges& edges)
      : pump(edges.pump),
        settings(edges.system.registry),
        extensions(edges.system.registry, edges.system.files, edges.system.automation, edges.system.log),
        pronunciations(settings, edges.system.files, edges.system.log, edges.settingsFolder),
        voice(edges.voice, edges.pump, [this](std::string_view text) { return pronunciations.Spell(text); }),
        voice2(edges.voice2, edges.pump,
               [this](std::string_view text) { return pronunciations.Spell(text); }),
        speech({.voice = voice,
                .voice2 = voice2,
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

  // The instance, reading as the others do.
  [[nodiscard]] std::unique_ptr<DirectSS> Spelled(std::unique_ptr<DirectSS> instance) {
    return std::make_unique<SpelledSpeech>(
        std::move(instance), pump, [this](std::string_view text) { return pronunciations.Spell(text); });
  }

  EventPump& pump;
  StartupState startup;
  SettingsStore settings;
  ModAddin extensions;
  Pronunciations pronunciations;
  SpelledSpeech voice;
  SpelledSpeech voice2;
  ModSpeak speech;
};

}  // namespace lorelin
