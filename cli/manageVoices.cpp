#include "cli/manageVoices.h"

#include <iomanip>
#include <iostream>

#include "base/RuntimeError.h"
#include "base/TaskPump.h"
#include "base/sizeText.h"
#include "base/textEncoding.h"
#include "cli/Failure.h"
#include "cli/VoiceProgress.h"
#include "cli/interruption.h"
#include "platform/common/console.h"
#include "ports/Platform.h"
#include "voices/VoiceLibrary.h"
#include "voices/keptVoice.h"
#include "voices/voiceTexts.h"

namespace lorelin::cli {
namespace {

using Entry = VoiceLibrary::Entry;

// A column counts characters, the stream counts bytes.
std::string Column(const std::string& text, std::size_t width) {
  const std::size_t length = CharacterCount(text);
  return text + std::string(length < width ? width - length : 1, ' ');
}

class Session {
 public:
  explicit Session(const Options& options)
      : options_(options),
        services_(MakePlatformServices(options.verbose)),
        settings_(*services_.registry),
        library_({.downloader = *services_.voiceDownloads,
                  .checksums = *services_.checksums,
                  .archives = *services_.voiceArchives,
                  .natural = *services_.naturalVoices,
                  .files = *services_.fileWriter,
                  .settings = settings_,
                  .clock = *services_.clock,
                  .log = *services_.log}) {
    if (!services_.registryNotice.empty()) std::cerr << services_.registryNotice << '\n';
    for (const std::string& problem : library_.Problems()) std::cerr << problem << '\n';
  }

  ExitCode List() {
    const std::string word = options_.voiceWords.empty() ? "" : options_.voiceWords.front();
    for (const Entry& entry : library_.Entries(word)) {
      std::cout << Column(entry.name, 34) << Column(entry.language, 26) << Column(entry.quality, 13)
                << Column(entry.size, 8) << Column(entry.speed, 13) << entry.StateText() << '\n';
    }
    TellObstacle();
    return ExitCode::Done;
  }

  ExitCode Install() {
    if (!services_.naturalVoices->Supported())
      throw Failure(ExitCode::NotToTheEnd, services_.naturalVoices->Obstacle());
    const std::string& word = options_.voiceWords.front();
    if (const CatalogueVoice* const voice = library_.Find(word)) {
      if (options_.voiceWords.size() > 1)
        throw Failure(ExitCode::Usage, "„--install“ nimmt nur einen Namen.");
      return Download(*voice);
    }
    const auto local = library_.FindLocal(options_.voiceWords);
    if (!local) {
      throw Failure(ExitCode::Usage, "Eine Stimme „" + word +
                                         "“ ist nicht in der Liste und keine Datei mit einer Stimme (siehe "
                                         "„lorelin-cli voices --available“).");
    }
    Require(library_.Local().Install(*local, [] {
      ThrowIfInterrupted();
      return true;
    }));
    return Installed(local->name);
  }

  ExitCode Remove() {
    const std::string& word = options_.voiceWords.front();
    for (const Entry& entry : library_.Entries()) {
      if (entry.name != word || !entry.CanRemove()) continue;
      Require(library_.Installer().Remove(word));
      KeepChosen();
      std::cout << "Entfernt: " << word << '\n';
      return ExitCode::Done;
    }
    throw Failure(ExitCode::Usage, "Eine eigene Stimme „" + word + "“ ist nicht installiert.");
  }

 private:
  ExitCode Download(const CatalogueVoice& voice) {
    VoiceInstaller installer = library_.Installer();
    if (installer.Folder().Has(voice.name))
      throw Failure(ExitCode::Usage, "Die Stimme „" + voice.name + "“ ist schon installiert.");
    std::string card;
    Require(installer.FetchCard(voice, card, [](auto, auto) {
      ThrowIfInterrupted();
      return true;
    }));
    Agree(voice, card);
    {
      VoiceProgress progress(*services_.clock);
      const VoiceOutcome outcome = installer.Install(voice, card, [&](auto there, auto all) {
        progress.Turn(there, all);
        ThrowIfInterrupted();
        return true;
      });
      Require(outcome);
    }
    return Installed(voice.name);
  }

  void Agree(const CatalogueVoice& voice, const std::string& card) {
    std::cerr << "Die Karte der Stimme " << voice.name << " (" << SizeText(voice.Bytes()) << "):\n\n"
              << card << '\n';
    if (const std::string_view advice = QualityAdvice(voice.quality); !advice.empty())
      std::cerr << "Güte „" << QualityText(voice.quality) << "“: " << advice << '\n';
    if (options_.answer == MessageAnswer::Yes) return;
    if (!InputIsTerminal()) {
      throw Failure(ExitCode::Usage,
                    "Wer mit der Lizenz einverstanden ist, sagt es mit „--yes“. Es wurde nichts geladen.");
    }
    const std::string answer = AskOnTerminal("Sind Sie mit der Lizenz einverstanden? (j/n) ");
    if (answer != "j" && answer != "J" && answer != "ja")
      throw Failure(ExitCode::NotToTheEnd, "Es wurde nichts geladen.");
  }

  static void Require(const VoiceOutcome& outcome) {
    if (outcome.Done()) return;
    const bool noRoom = outcome.kind == VoiceOutcome::Kind::NoRoom;
    throw Failure(noRoom ? ExitCode::NoTarget : ExitCode::NotToTheEnd, outcome.text);
  }

  ExitCode Installed(const std::string& name) {
    KeepChosen();
    std::cout << "Installiert: " << name;
    if (const std::string offered = library_.OfferedName(name); !offered.empty())
      std::cout << " („" << offered << "“)";
    std::cout << '\n';
    TellObstacle();
    return ExitCode::Done;
  }

  // The chosen voice may have another place in the list now.
  void KeepChosen() {
    if (settings_.Get(setting::VoiceName).empty()) return;
    try {
      const auto engine = MakeSpeechInstance(services_, pump_, false, {});
      if (KeepVoice(settings_, *engine) == KeptVoice::Gone)
        std::cerr << "Die gewählte Stimme ist nicht mehr da. Es liest „"
                  << StoredVoiceName(settings_, *engine) << "“.\n";
    } catch (const RuntimeError& error) {
      services_.log->Write(std::string("Stimme: ") + error.what());  // the window looks for it at its start
    }
  }

  void TellObstacle() const {
    if (const std::string obstacle = services_.naturalVoices->Obstacle(); !obstacle.empty())
      std::cerr << obstacle << '\n';
  }

  const Options& options_;
  PlatformServices services_;
  TaskPump pump_;
  SettingsStore settings_;
  VoiceLibrary library_;
};

}  // namespace

ExitCode ManageVoices(const Options& options) {
  NoteInterruptions();
  Session session(options);
  switch (options.voiceOrder) {
    case VoiceOrder::Install:
      return session.Install();
    case VoiceOrder::Remove:
      return session.Remove();
    case VoiceOrder::Available:
    case VoiceOrder::List:
      break;
  }
  return session.List();
}

}  // namespace lorelin::cli
