#include "cli/options.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string_view>
#include <utility>

#include "base/text.h"
#include "export/soundFormats.h"

namespace lorelin::cli {
namespace {

std::int32_t WholeNumber(const std::string& option, const std::string& text, std::int32_t lowest,
                         std::int32_t highest) {
  std::int32_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc{} || end != text.data() + text.size() || number < lowest || number > highest) {
    throw UsageError("„" + option + " " + text + "“ geht nicht: erwartet wird eine ganze Zahl von " +
                     std::to_string(lowest) + " bis " + std::to_string(highest) + ".");
  }
  return number;
}

struct NumberOption {
  std::string_view name;
  std::optional<std::int32_t> Options::*target;
  std::int32_t lowest;
  std::int32_t highest;
};

constexpr std::array kNumberOptions{NumberOption{"--speed", &Options::speed, 0, 100},
                                    NumberOption{"--pitch", &Options::pitch, 0, 100},
                                    NumberOption{"--volume", &Options::volume, 0, 100}};

struct Command {
  std::string_view name;
  Action action;
};

constexpr std::array kCommands{Command{"say", Action::Say},     Command{"text", Action::Text},
                               Command{"spell", Action::Spell}, Command{"voices", Action::Voices},
                               Command{"run", Action::Run},     Command{"check", Action::Check},
                               Command{"reg", Action::Registry}};

class Parser {
 public:
  explicit Parser(std::span<const std::string> arguments) : rest_(arguments) {}

  Options Parse() {
    while (!rest_.empty()) Take(Next());
    if (!command_)
      throw UsageError("Es fehlt ein Befehl: „say“, „text“, „spell“, „voices“, „run“, „check“ oder „reg“.");
    CheckFiles();
    return options_;
  }

 private:
  void CheckFiles() {
    const std::size_t count = files_.size();
    switch (options_.action) {
      case Action::Say:
        CheckSound();
        if (count > 1 && options_.sound.output.empty()) {
          throw UsageError("Es kann nur eine Datei vorgelesen werden.");
        }
        if (count == 1) options_.input = files_.front();
        options_.inputs = count > 0 ? files_ : std::vector<std::string>{"-"};
        break;
      case Action::Text:
        if (count > 1) throw UsageError("„text“ nimmt nur eine Datei.");
        if (count == 1) options_.input = files_.front();
        break;
      case Action::Spell:
        if (count > 1) throw UsageError("„spell“ nimmt nur eine Datei.");
        if (count == 1) options_.input = files_.front();
        break;
      case Action::Run:
        if (count != 1) throw UsageError("„run“ führt genau ein Taskscript aus.");
        options_.scripts = files_;
        break;
      case Action::Check:
        if (count == 0) throw UsageError("„check“ braucht mindestens ein Taskscript.");
        options_.scripts = files_;
        break;
      case Action::Voices:
        CheckVoices(count);
        break;
      case Action::Registry:
        options_.words = files_;
        break;
      case Action::Help:
      case Action::Version:
        break;
    }
    const bool agrees = options_.voiceOrder == VoiceOrder::Install && options_.answer == MessageAnswer::Yes;
    if (options_.action != Action::Run &&
        ((options_.answer && !agrees) || options_.denyRead || options_.denyDownload)) {
      throw UsageError("„--yes“, „--no“ und „--deny“ gehören zu „run“, „--yes“ auch zu „voices --install“.");
    }
    if (options_.voiceOrder != VoiceOrder::List && options_.action != Action::Voices) {
      throw UsageError("„--available“, „--install“ und „--remove“ gehören zu „voices“.");
    }
    if (!soundOption_.empty() && options_.action != Action::Say) {
      throw UsageError("„" + soundOption_ + "“ gehört zu „say“.");
    }
    if (!soundOption_.empty() && options_.sound.output.empty()) {
      throw UsageError("„" + soundOption_ + "“ braucht „-o“ und eine Datei oder einen Ordner.");
    }
    if (options_.table && options_.action != Action::Spell) throw UsageError("„--table“ gehört zu „spell“.");
  }

  void CheckVoices(std::size_t count) {
    if (options_.voiceOrder == VoiceOrder::List && count > 0) throw UsageError("„voices“ nimmt keine Datei.");
    if (options_.voiceOrder == VoiceOrder::Install && count == 0)
      throw UsageError("Hinter „--install“ fehlt der Name einer Stimme oder eine Datei mit einer Stimme.");
    if (options_.voiceOrder == VoiceOrder::Remove && count != 1)
      throw UsageError("Hinter „--remove“ gehört der Name einer Stimme.");
    if (options_.voiceOrder == VoiceOrder::Available && count > 1)
      throw UsageError("Hinter „--available“ gehört höchstens ein Wort.");
    options_.voiceWords = files_;
  }

  void Order(VoiceOrder order) {
    if (options_.voiceOrder != VoiceOrder::List)
      throw UsageError("Nur eines von „--available“, „--install“ und „--remove“ geht.");
    options_.voiceOrder = order;
  }

  void CheckSound() {
    SoundOptions& sound = options_.sound;
    if (sound.output.empty()) return;
    sound.book = sound.book || (!sound.format && LowerAscii(sound.output).ends_with(kBookEnding));
    if (sound.book && (sound.subtitles || sound.fileForEachChapter)) {
      throw UsageError(
          "Ein EPUB enthält seinen Text und alle Kapitel: „--subtitles“ und „--chapters“ gehen damit nicht "
          "zusammen.");
    }
    if (!options_.waveFile.empty()) throw UsageError("„--wav“ und „-o“ gehen nicht zusammen.");
    if (files_.size() > 1 && !sound.title.empty()) {
      throw UsageError("„--title“ geht nur mit einer Datei.");
    }
  }

  void Deny(const std::string& what) {
    if (what != "read" && what != "download" && what != "all") {
      throw UsageError("„--deny " + what + "“ geht nicht: erwartet wird „read“, „download“ oder „all“.");
    }
    options_.denyRead = options_.denyRead || what != "download";
    options_.denyDownload = options_.denyDownload || what != "read";
  }

  std::string Next() {
    std::string argument = rest_.front();
    rest_ = rest_.subspan(1);
    return argument;
  }

  std::string Value(const std::string& option) {
    if (rest_.empty()) throw UsageError("Hinter „" + option + "“ fehlt der Wert.");
    return Next();
  }

  void Take(const std::string& argument) {
    if (onlyFiles_ || argument == "-" || !argument.starts_with('-')) {
      TakeWord(argument);
    } else if (const auto equals = argument.find('=');
               argument.starts_with("--") && equals != std::string::npos) {
      const std::string value = argument.substr(equals + 1);
      TakeOption(argument.substr(0, equals), [&] { return value; });
    } else {
      TakeOption(argument, [&] { return Value(argument); });
    }
  }

  void TakeWord(const std::string& word) {
    if (!command_) {
      command_ = true;
      const auto* const found =
          std::find_if(kCommands.begin(), kCommands.end(), [&](const Command& c) { return c.name == word; });
      if (found == kCommands.end()) throw UsageError("Den Befehl „" + word + "“ gibt es nicht.");
      options_.action = found->action;
      return;
    }
    files_.push_back(word);
  }

  // By its number or its name.
  void TakeVoice(const std::string& option, const std::string& voice) {
    constexpr std::int32_t kMostVoices = 100000;
    const bool named = !voice.empty() && voice.find_first_not_of("+-0123456789") != std::string::npos;
    options_.voiceName = named ? voice : std::string();
    options_.voice = named ? std::nullopt : std::optional(WholeNumber(option, voice, 1, kMostVoices));
  }

  template <typename Named>
  static auto Known(const std::string& option, const std::string& word, const Named& named,
                    std::string_view expected) {
    const auto found = named(word);
    if (!found) {
      throw UsageError("„" + option + " " + word + "“ geht nicht: erwartet wird " + std::string(expected) +
                       ".");
    }
    return *found;
  }

  static std::string NotEmpty(const std::string& option, std::string text) {
    if (text.empty()) throw UsageError("Hinter „" + option + "“ fehlt der Name.");
    return text;
  }

  void TakeFormat(const std::string& option, const std::string& word) {
    SoundOptions& sound = options_.sound;
    sound.book = LowerAscii(word) == kBookWord;
    sound.format = Known(
        option, word,
        [&](const std::string& name) {
          return sound.book ? std::optional(SoundFormat::Mp3) : SoundFormatNamed(name);
        },
        "„mp3“, „opus“, „ogg“, „flac“, „wav“ oder „epub“");
  }

  template <typename ValueOf>
  bool TakeSoundOption(const std::string& option, const ValueOf& value) {
    SoundOptions& sound = options_.sound;
    if (option == "-o" || option == "--output") {
      sound.output = NotEmpty(option, value());
    } else if (option == "--format") {
      TakeFormat(option, value());
    } else if (option == "--quality") {
      sound.quality = Known(
          option, value(), [](const std::string& word) { return SoundQualityNamed(word); },
          "„klein“, „mittel“ oder „hoch“");
    } else if (option == "--subtitles") {
      sound.subtitles = Known(
          option, value(), [](const std::string& word) { return SubtitleFormatNamed(word); },
          "„srt“, „lrc“ oder „vtt“");
    } else if (option == "--jobs") {
      sound.jobs = WholeNumber(option, value(), 1, 64);
    } else if (option == "--chapters") {
      sound.fileForEachChapter = true;
    } else {
      return TakeTag(option, value);
    }
    return true;
  }

  template <typename ValueOf>
  bool TakeTag(const std::string& option, const ValueOf& value) {
    for (const auto& [name, tag] :
         {std::pair{"--title", &SoundOptions::title}, std::pair{"--author", &SoundOptions::author},
          std::pair{"--language", &SoundOptions::language}}) {
      if (option != name) continue;
      options_.sound.*tag = NotEmpty(option, value());
      return true;
    }
    return false;
  }

  template <typename ValueOf>
  void TakeOption(const std::string& option, const ValueOf& value) {
    for (const NumberOption& number : kNumberOptions) {
      if (option != number.name) continue;
      options_.*number.target = WholeNumber(option, value(), number.lowest, number.highest);
      return;
    }
    if (TakeSoundOption(option, value)) {
      soundOption_ = option;
    } else if (option == "--voice") {
      TakeVoice(option, value());
    } else if (option == "--wav") {
      options_.waveFile = value();
      if (options_.waveFile.empty()) throw UsageError("Hinter „--wav“ fehlt der Dateiname.");
    } else if (option == "--deny") {
      Deny(value());
    } else if (option == "--yes") {
      options_.answer = MessageAnswer::Yes;
    } else if (option == "--no") {
      options_.answer = MessageAnswer::No;
    } else if (option == "--available") {
      Order(VoiceOrder::Available);
    } else if (option == "--install") {
      Order(VoiceOrder::Install);
    } else if (option == "--remove") {
      Order(VoiceOrder::Remove);
    } else if (option == "--table") {
      options_.table = true;
    } else if (option == "--verbose") {
      options_.verbose = true;
    } else if (option == "--help" || option == "-h") {
      Finish(Action::Help);
    } else if (option == "--version") {
      Finish(Action::Version);
    } else if (option == "--") {
      onlyFiles_ = true;
    } else {
      throw UsageError("Die Option „" + option + "“ gibt es nicht.");
    }
  }

  void Finish(Action action) {
    options_.action = action;
    command_ = true;
    files_.clear();
    rest_ = {};
  }

  std::span<const std::string> rest_;
  Options options_;
  bool command_ = false;
  bool onlyFiles_ = false;
  std::vector<std::string> files_;
  std::string soundOption_;  // one that was given
};

}  // namespace

Options ParseOptions(std::span<const std::string> arguments) {
  return Parser(arguments).Parse();
}

std::string HelpText() {
  return "lorelin-cli liest Texte vor oder schreibt sie als WAV-Datei.\n"
         "\n"
         "  lorelin-cli say [Optionen] [DATEI|-]   liest die Datei vor, ohne Datei die Standardeingabe\n"
         "  lorelin-cli say -o ZIEL [DATEI|-] ...  schreibt jede Datei als Tondatei\n"
         "  lorelin-cli text [DATEI|-]             schreibt den Text, der vorgelesen würde\n"
         "  lorelin-cli spell [--table] [DATEI|-]  schreibt den Text so aus, wie deutsche Stimmen ihn "
         "sprechen\n"
         "  lorelin-cli voices                     nennt die Stimmen\n"
         "  lorelin-cli voices --available [WORT]  nennt natürliche Stimmen, die man herunterladen kann\n"
         "  lorelin-cli voices --install NAME      lädt eine davon herunter; statt des Namens auch die "
         "Dateien\n"
         "                                         einer Stimme (.onnx, .zip, .tar.gz)\n"
         "  lorelin-cli voices --remove NAME       entfernt sie wieder\n"
         "  lorelin-cli run [Optionen] SCRIPT.vts  führt ein Taskscript aus\n"
         "  lorelin-cli check SCRIPT.vts ...       nennt Fehler in Taskscripts\n"
         "  lorelin-cli reg query PFAD [NAME]      zeigt einen Schlüssel oder Wert der Registrierung\n"
         "  lorelin-cli reg add PFAD [NAME DATEN]  legt einen Schlüssel oder Wert an\n"
         "  lorelin-cli reg delete PFAD [NAME]     löscht einen Schlüssel oder Wert\n"
         "  lorelin-cli reg export PFAD DATEI      schreibt einen Schlüssel in eine Datei (REGEDIT4)\n"
         "  lorelin-cli reg import DATEI           liest eine solche Datei ein\n"
         "\n"
         "Optionen:\n"
         "  --voice N      Stimme Nummer N aus „voices“, oder die, in deren Namen allein N vorkommt\n"
         "  --speed P      Geschwindigkeit in Prozent, 0 bis 100\n"
         "  --pitch P      Helligkeit in Prozent, 0 bis 100\n"
         "  --volume P     Lautstärke in Prozent, 0 bis 100\n"
         "  --wav DATEI    schreibt eine WAV-Datei, statt vorzulesen\n"
         "  -o ZIEL        schreibt Tondateien, statt vorzulesen; bei mehreren ist ZIEL der Ordner dafür\n"
         "  --format F     „mp3“, „opus“, „ogg“, „flac“, „wav“ oder „epub“ (ein Buch mit Text und Ton); "
         "sonst,\n"
         "                 wie ZIEL endet, oder „mp3“\n"
         "  --quality Q    „klein“, „mittel“ oder „hoch“\n"
         "  --chapters     eine Datei für jedes Kapitel, sonst stehen die Kapitel in der einen Datei\n"
         "  --subtitles U  Untertitel daneben: „srt“, „lrc“ oder „vtt“\n"
         "  --title T, --author A, --language L\n"
         "                 was die Tondatei von sich sagt; sonst, was die Datei weiß\n"
         "  --jobs N       so viele Tondateien zugleich, sonst zwei\n"
         "  --yes, --no    beantwortet alle Fragen eines Taskscripts so; „--yes“ nimmt bei „--install“ die\n"
         "                 Lizenz an\n"
         "  --deny WAS     verbietet dem Taskscript „read“ (Laden, Löschen, Ausführen und Exportieren),\n"
         "                 „download“ (Download) oder „all“ (alles davon); was verboten ist, wird\n"
         "                 übersprungen\n"
         "  --table        nennt bei „spell“ nur, was ersetzt wird: Zeile, Geschriebenes, Gesprochenes\n"
         "  --verbose      zeigt auch, was sonst nur im Protokoll steht\n"
         "  --help         zeigt diese Hilfe\n"
         "  --version      nennt die Version\n"
         "\n"
         "PFAD beginnt mit HKCU oder einem anderen Stamm; der NAME @ ist der Standardwert. DATEN sind ein\n"
         "Text, „dword:000000FF“ oder „hex:41,0A,FF“.\n"
         "\n"
         "Was nicht angegeben ist, gilt wie im Fenster eingestellt.\n"
         "\n"
         "Rückgabewerte: 0 bis zum Ende, 1 nicht bis zum Ende oder Fehler gefunden, 2 falscher Aufruf,\n"
         "3 Text oder Taskscript nicht lesbar, 4 Ziel nicht schreibbar, 5 Befehle des Taskscripts schlugen "
         "fehl,\n"
         "6 das Taskscript beendete sich selbst, 7 Taskscripts sind in den Einstellungen unterbunden,\n"
         "8 die Registrierung hat es nicht ausgeführt,\n"
         "130 mit Strg+C abgebrochen.\n";
}

}  // namespace lorelin::cli
