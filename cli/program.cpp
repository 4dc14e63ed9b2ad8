#include "cli/program.h"
#include "cli/chosenVoice.h"

#include <exception>
#include <iomanip>
#include <iostream>

#include "base/RuntimeError.h"
#include "base/TaskPump.h"
#include "base/paths.h"
#include "base/unfinishedName.h"
#include "base/version.h"
#include "cli/Failure.h"
#include "cli/LoadedDocument.h"
#include "cli/Progress.h"
#include "cli/check.h"
#include "cli/consolePorts.h"
#include "cli/files.h"
#include "cli/interruption.h"
#include "cli/manageVoices.h"
#include "cli/overrideSettings.h"
#include "cli/reg.h"
#include "cli/runScript.h"
#include "cli/sayFiles.h"
#include "cli/spell.h"
#include "platform/common/console.h"
#include "ports/Platform.h"
#include "speech/SilentVoice.h"
#include "speech/SpeechModules.h"
#include "voices/keptVoice.h"

namespace lorelin::cli {
namespace {

std::string LanguageColumn(DirectSS& engine, std::int32_t number) {
  const std::int32_t id = engine.VoiceLanguage(number);
  return id == 0 ? "-" : std::to_string(id);
}

std::string_view GenderText(std::int32_t gender) {
  if (gender == 1) return "männlich";
  return gender == 2 ? "weiblich" : "-       ";
}

// The program's objects, in the order in which they need each other.
class Session {
 public:
  explicit Session(const Options& options)
      : options_(options),
        services_(MakePlatformServices(options.verbose)),
        statusBar_(options.verbose),
        engine_(MakeSpeechInstance(
            services_, pump_, options.waveFile.empty() && options.action == Action::Say, &TellCondition)) {
    if (!services_.registryNotice.empty()) std::cerr << services_.registryNotice << '\n';
  }

  ExitCode ListVoices() {
    std::cout << std::right << std::setw(4) << "Nr."
              << "  Sprache  Geschlecht  Name\n";
    for (std::int32_t number = 1; number <= engine_->VoiceCount(); ++number) {
      std::cout << std::right << std::setw(4) << number << "  " << std::left << std::setw(7)
                << LanguageColumn(*engine_, number) << "  " << GenderText(engine_->VoiceGender(number))
                << "    " << engine_->VoiceName(number) << '\n';
    }
    return ExitCode::Done;
  }

  ExitCode Say() {
    const std::string input = LoadSpeakable(options_.input, *services_.importer).text;
    if (!options_.waveFile.empty()) RequireTarget(options_.waveFile, options_.input);
    const Options options = WithChosenVoice(options_, *engine_);
    document_.SetText(input);
    const bool rendering = !options_.waveFile.empty();
    SilentVoice silent(*engine_);
    SpeechModules spoken({.system = services_.Ports(),
                          .voice = rendering ? static_cast<DirectSS&>(silent) : *engine_,
                          .voice2 = rendering ? *engine_ : static_cast<DirectSS&>(silent),
                          .document = document_,
                          .statusBar = statusBar_,
                          .messageBoxes = messageBoxes_,
                          .pump = pump_,
                          .programFolder = services_.paths.programFolder,
                          .settingsFolder = services_.paths.settingsFolder});
    if (!options.voice) (void)KeepVoice(spoken.settings, *engine_);
    OverrideSettings(spoken.settings, options);
    return SpeakToTheEnd(spoken.speech, input);
  }

 private:
  ExitCode SpeakToTheEnd(ModSpeak& speech, std::string text) {
    bool ended = false;
    speech.OnExportAvailable([&](bool available) { ended = available; });
    Progress progress(options_.waveFile.empty() ? std::string()
                                                : UnfinishedName(NativePath(options_.waveFile)).string());
    pump_.OnTurn([&] {
      HandleSystemEvents();
      progress.Turn();
      ThrowIfInterrupted();  // nothing inside Speak holds what would have to be undone
    });
    speech.Speak(text, true, options_.waveFile.empty() ? "-1" : options_.waveFile, true);
    while (!ended) pump_.WaitForEvents();
    if (speech.Problem().empty()) return ExitCode::Done;
    throw Failure(ExitCode::NotToTheEnd, options_.verbose ? std::string() : speech.Problem());
  }

  const Options& options_;
  PlatformServices services_;
  TaskPump pump_;
  ConsoleMessageBoxes messageBoxes_{MessageAnswer::Yes};  // of extensions; nobody is asked
  ConsoleStatusBar statusBar_;
  ConsoleDocument document_;
  std::unique_ptr<DirectSS> engine_;
};

ExitCode Spell(const Options& options) {
  const PlatformServices services = MakePlatformServices(options.verbose);
  if (!services.registryNotice.empty()) std::cerr << services.registryNotice << '\n';
  SettingsStore settings(*services.registry);
  Pronunciations pronunciations(settings, *services.fileWriter, *services.log, services.paths.settingsFolder);
  const std::string text = ReadText(options.input);
  options.table ? PrintTable(*pronunciations.Speller(), text, std::cout)
                : PrintSpoken(*pronunciations.Speller(), text, std::cout);
  return ExitCode::Done;
}

ExitCode Perform(const Options& options) {
  switch (options.action) {
    case Action::Help:
      std::cout << HelpText();
      return ExitCode::Done;
    case Action::Version:
      std::cout << "Lorelin " << kVersionText << '\n';
      return ExitCode::Done;
    case Action::Voices:
      if (options.voiceOrder != VoiceOrder::List) return ManageVoices(options);
      return Session(options).ListVoices();
    case Action::Say:
      NoteInterruptions();
      return options.sound.output.empty() ? Session(options).Say() : SayIntoFiles(options);
    case Action::Text:
      return PrintText(options);
    case Action::Spell:
      return Spell(options);
    case Action::Run:
      NoteInterruptions();
      return RunScript(options);
    case Action::Check:
      return CheckScripts(options.scripts, std::cout, std::cerr);
    case Action::Registry: {
      const PlatformServices services = MakePlatformServices(options.verbose);
      if (!services.registryNotice.empty()) std::cerr << services.registryNotice << '\n';
      return UseRegistry(options.words, *services.registry, *services.fileWriter, std::cout);
    }
  }
  return ExitCode::Usage;
}

}  // namespace

ExitCode Run(std::span<const std::string> arguments) {
  try {
    const ExitCode code = Perform(ParseOptions(arguments));
    if (!std::cout.flush()) throw Failure(ExitCode::NoTarget, "Die Ausgabe kann nicht geschrieben werden.");
    return code;
  } catch (const UsageError& error) {
    std::cerr << "lorelin-cli: " << error.what() << "\nMehr sagt „lorelin-cli --help“.\n";
    return ExitCode::Usage;
  } catch (const Failure& failure) {
    if (*failure.what() != '\0') std::cerr << "lorelin-cli: " << failure.what() << '\n';
    return failure.Code();
  } catch (const RuntimeError& error) {
    std::cerr << "lorelin-cli: " << error.what() << " (" << error.Number() << ")\n";
    return ExitCode::NotToTheEnd;
  } catch (const Interruption&) {
    std::cerr << "lorelin-cli: abgebrochen\n";
    return ExitCode::Interrupted;
  } catch (const std::exception& error) {
    std::cerr << "lorelin-cli: unerwarteter Fehler: " << error.what() << '\n';
    return ExitCode::NotToTheEnd;
  }
}

}  // namespace lorelin::cli
