#include "cli/options.h"

#include <array>
#include <charconv>
#include <string_view>

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

constexpr std::array kNumberOptions{
    NumberOption{"--voice", &Options::voice, 1, 100000}, NumberOption{"--speed", &Options::speed, 0, 100},
    NumberOption{"--pitch", &Options::pitch, 0, 100}, NumberOption{"--volume", &Options::volume, 0, 100}};

class Parser {
 public:
  explicit Parser(std::span<const std::string> arguments) : rest_(arguments) {}

  Options Parse() {
    while (!rest_.empty()) Take(Next());
    if (!command_) throw UsageError("Es fehlt ein Befehl: „say“ oder „voices“.");
    if (inputs_ > 0 && options_.action != Action::Say) throw UsageError("„voices“ nimmt keine Datei.");
    return options_;
  }

 private:
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
      if (word == "say")
        options_.action = Action::Say;
      else if (word == "voices")
        options_.action = Action::Voices;
      else
        throw UsageError("Den Befehl „" + word + "“ gibt es nicht.");
      return;
    }
    if (++inputs_ > 1) throw UsageError("Es kann nur eine Datei vorgelesen werden.");
    options_.input = word;
  }

  template <typename ValueOf>
  void TakeOption(const std::string& option, const ValueOf& value) {
    for (const NumberOption& number : kNumberOptions) {
      if (option != number.name) continue;
      options_.*number.target = WholeNumber(option, value(), number.lowest, number.highest);
      return;
    }
    if (option == "--wav") {
      options_.waveFile = value();
      if (options_.waveFile.empty()) throw UsageError("Hinter „--wav“ fehlt der Dateiname.");
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
    inputs_ = 0;
    rest_ = {};
  }

  std::span<const std::string> rest_;
  Options options_;
  bool command_ = false;
  bool onlyFiles_ = false;
  int inputs_ = 0;
};

}  // namespace

Options ParseOptions(std::span<const std::string> arguments) {
  return Parser(arguments).Parse();
}

std::string HelpText() {
  return "lorelin-cli liest Texte vor oder schreibt sie als WAV-Datei.\n"
         "\n"
         "  lorelin-cli say [Optionen] [DATEI|-]   liest die Datei vor, ohne Datei die Standardeingabe\n"
         "  lorelin-cli voices                     nennt die Stimmen\n"
         "\n"
         "Optionen:\n"
         "  --voice N      Stimme Nummer N aus „voices“\n"
         "  --speed P      Geschwindigkeit in Prozent, 0 bis 100\n"
         "  --pitch P      Helligkeit in Prozent, 0 bis 100\n"
         "  --volume P     Lautstärke in Prozent, 0 bis 100\n"
         "  --wav DATEI    schreibt eine WAV-Datei, statt vorzulesen\n"
         "  --verbose      zeigt auch, was sonst nur im Protokoll steht\n"
         "  --help         zeigt diese Hilfe\n"
         "  --version      nennt die Version\n"
         "\n"
         "Was nicht angegeben ist, gilt wie im Fenster eingestellt.\n"
         "\n"
         "Rückgabewerte: 0 bis zum Ende vorgelesen, 1 nicht bis zum Ende, 2 falscher Aufruf, 3 Text nicht "
         "lesbar,\n"
         "4 Ziel nicht schreibbar, 130 mit Strg+C abgebrochen.\n";
}

}  // namespace lorelin::cli
