#include <algorithm>
#include <array>
#include <charconv>
#include <map>
#include <utility>

#include "base/text.h"
#include "base/textEncoding.h"
#include "engine/commandVoices.h"

namespace lorelin::engine {
namespace {

constexpr std::size_t kLongestName = 100;
constexpr std::size_t kMostArguments = 100;

constexpr std::array<std::pair<std::string_view, Placeholder>, 4> kPlaceholders{
    {{"speed", Placeholder::Speed},
     {"stretch", Placeholder::Stretch},
     {"pitch", Placeholder::Pitch},
     {"volume", Placeholder::Volume}}};

// What is wrong, as the end of a German sentence.
struct Wrong {
  std::string text;
};

// As much of it as is worth being shown.
std::string Quoted(std::string_view text) {
  constexpr std::size_t kMostCharacters = 60;
  const std::string_view rest = FromCharacter(text, kMostCharacters);
  const std::string shown(text.substr(0, text.size() - rest.size()));
  return "„" + shown + (rest.empty() ? "“" : "…“");
}

bool IsBlank(char c) {
  return c == ' ' || c == '\t';
}

std::string_view Trimmed(std::string_view text) {
  while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
  return text;
}

// Takes a command apart: arguments between blanks; within "…" a blank is part of the argument, within '…'
// every sign is, and so is the sign behind a backslash elsewhere. Nothing else has a meaning, but for what
// stands in braces.
class CommandReader {
 public:
  explicit CommandReader(std::string_view text) : rest_(text) {}

  std::vector<Argument> Read() {
    std::vector<Argument> command;
    for (SkipBlanks(); !rest_.empty(); SkipBlanks()) {
      if (command.size() >= kMostArguments) throw Wrong{"das Programm hat zu viele Argumente"};
      RefuseShell();
      command.push_back(ReadArgument());
    }
    if (command.empty()) throw Wrong{"hinter „command =“ fehlt das Programm"};
    const Argument& program = command.front();
    if (program.size() != 1 || program[0].placeholder != Placeholder::None || program[0].text.empty())
      throw Wrong{"der Name des Programms muss ein fester Text sein"};
    return command;
  }

 private:
  void SkipBlanks() {
    while (!rest_.empty() && IsBlank(rest_.front())) rest_.remove_prefix(1);
  }

  // Who writes these expects a shell.
  void RefuseShell() const {
    const std::string_view word = rest_.substr(0, rest_.find_first_of(" \t"));
    const bool redirects =
        word.find_first_not_of("0123456789") != std::string_view::npos &&
        std::string_view("<>").find(word[word.find_first_not_of("0123456789")]) != std::string_view::npos;
    if (redirects || std::string_view("|&;`").find(word.front()) != std::string_view::npos ||
        word.starts_with("$("))
      throw Wrong{Quoted(word) +
                  " hat hier keine Bedeutung, weil das Programm ohne Shell gestartet wird; dafür braucht es "
                  "ein eigenes Skript (oder Anführungszeichen, wenn es ein Argument ist)"};
  }

  Argument ReadArgument() {
    argument_.clear();
    text_.clear();
    while (!rest_.empty() && !IsBlank(rest_.front())) ReadSign();
    EndText();
    if (argument_.empty()) argument_.emplace_back();
    return std::move(argument_);
  }

  void ReadSign() {
    const char sign = Take();
    if (sign == '"') {
      while (Peek('"') != '"') ReadPlain(Take());
      rest_.remove_prefix(1);
    } else if (sign == '\'') {
      while (Peek('\'') != '\'') text_ += Take();
      rest_.remove_prefix(1);
    } else {
      ReadPlain(sign);
    }
  }

  void ReadPlain(char sign) {
    if (sign == '\\') {
      if (rest_.empty()) throw Wrong{"am Ende steht ein „\\“ ohne Zeichen dahinter"};
      text_ += Take();
    } else if (sign == '{') {
      ReadPlaceholder();
    } else {
      text_ += sign;
    }
  }

  void ReadPlaceholder() {
    const std::string_view name = rest_.substr(0, rest_.find('}'));
    const auto found = std::find_if(kPlaceholders.begin(), kPlaceholders.end(),
                                    [&](const auto& known) { return known.first == name; });
    if (name.size() == rest_.size() || found == kPlaceholders.end()) {
      throw Wrong{
          "in geschweiften Klammern steht „speed“, „stretch“, „pitch“ oder „volume“; eine Klammer "
          "selbst ist „\\{“"};
    }
    rest_.remove_prefix(name.size() + 1);
    EndText();
    argument_.push_back({"", found->second});
  }

  void EndText() {
    if (!text_.empty()) argument_.push_back({std::exchange(text_, {}), Placeholder::None});
  }

  char Take() {
    const char sign = rest_.front();
    rest_.remove_prefix(1);
    return sign;
  }

  [[nodiscard]] char Peek(char quote) const {
    if (rest_.empty()) throw Wrong{"es fehlt ein schließendes " + std::string(1, quote)};
    return rest_.front();
  }

  std::string_view rest_;
  std::string text_;
  Argument argument_;
};

std::string Name(std::string_view value) {
  if (value.empty() || value.size() > kLongestName) throw Wrong{"der Name ist leer oder zu lang"};
  return std::string(value);
}

std::string Language(std::string_view value) {
  const bool tag =
      !value.empty() && value.size() <= 35 && std::all_of(value.begin(), value.end(), [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' ||
               c == '_';
      });
  if (!tag) throw Wrong{Quoted(value) + " ist keine Sprache wie „de“ oder „en-us“"};
  std::string language = LowerAscii(value);
  std::replace(language.begin(), language.end(), '_', '-');
  return language;
}

std::int32_t Gender(std::string_view value) {
  if (value == "male") return 1;
  if (value == "female") return 2;
  throw Wrong{"hinter „gender =“ steht „male“ oder „female“"};
}

CommandVoice::Mode Mode(std::string_view value) {
  if (value == "once") return CommandVoice::Mode::Once;
  if (value == "stays") return CommandVoice::Mode::Stays;
  if (value == "module") return CommandVoice::Mode::Module;
  throw Wrong{"hinter „mode =“ steht „once“, „stays“ oder „module“"};
}

bool IsRaw(std::string_view value) {
  if (value != "wav" && value != "raw") throw Wrong{"hinter „output =“ steht „wav“ oder „raw“"};
  return value == "raw";
}

int Whole(std::string_view value, int lowest, int highest, const std::string& what) {
  int number = 0;
  const auto [end, error] = std::from_chars(value.data(), value.data() + value.size(), number);
  if (error != std::errc() || end != value.data() + value.size() || number < lowest || number > highest) {
    throw Wrong{"hinter „" + what + " =“ steht eine ganze Zahl von " + std::to_string(lowest) + " bis " +
                std::to_string(highest)};
  }
  return number;
}

// The lines of a file one after the other, and what they say.
class VoiceReader {
 public:
  CommandVoice Read(std::string_view text) {
    if (text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3);
    while (!text.empty()) {
      ++line_;
      const std::size_t end = std::min(text.find('\n'), text.size());
      ReadLine(text.substr(0, end));
      text.remove_prefix(std::min(end + 1, text.size()));
    }
    line_ = 0;
    CheckWhole();
    return std::move(voice_);
  }

  [[nodiscard]] std::size_t Line() const { return line_; }

 private:
  void ReadLine(std::string_view line) {
    if (line.ends_with('\r')) line.remove_suffix(1);
    if (!IsValidUtf8(line)) throw Wrong{"die Zeile ist nicht in UTF-8 geschrieben"};
    if (std::any_of(line.begin(), line.end(),
                    [](char c) { return (static_cast<unsigned char>(c) < 0x20 && c != '\t') || c == 0x7F; }))
      throw Wrong{"die Zeile enthält ein Steuerzeichen"};
    line = Trimmed(line);
    if (line.empty() || line.front() == '#') return;
    const std::size_t sign = line.find('=');
    if (sign == std::string_view::npos) throw Wrong{"die Zeile hat nicht die Form „Schlüssel = Wert“"};
    ReadKey(Trimmed(line.substr(0, sign)), Trimmed(line.substr(sign + 1)));
  }

  void ReadKey(std::string_view key, std::string_view value) {
    if (!lines_.emplace(key, line_).second) throw Wrong{"den Schlüssel " + Quoted(key) + " gab es schon"};
    if (key == "name") {
      voice_.name = Name(value);
    } else if (key == "language") {
      voice_.language = Language(value);
    } else if (key == "gender") {
      voice_.gender = Gender(value);
    } else if (key == "command") {
      voice_.command = CommandReader(value).Read();
    } else if (key == "mode") {
      voice_.mode = Mode(value);
    } else {
      ReadOutputKey(key, value);
    }
  }

  void ReadOutputKey(std::string_view key, std::string_view value) {
    if (key == "output") {
      raw_ = IsRaw(value);
    } else if (key == "rate") {
      voice_.rawRate = Whole(value, 4000, 96000, "rate");
    } else if (key == "timeout") {
      voice_.timeout = std::chrono::seconds(Whole(value, 1, 300, "timeout"));
    } else if (key == "voice") {
      voice_.moduleVoice = Name(value);
    } else {
      throw Wrong{"den Schlüssel " + Quoted(key) + " gibt es nicht"};
    }
  }

  void CheckWhole() {
    for (const char* const needed : {"language", "command"}) {
      if (!lines_.contains(needed)) throw Wrong{"es fehlt die Zeile „" + std::string(needed) + " = …“"};
    }
    const bool module = voice_.mode == CommandVoice::Mode::Module;
    if (raw_ && voice_.rawRate == 0) throw At("output", "zu „output = raw“ gehört eine Zeile „rate = …“");
    if (!raw_ && voice_.rawRate != 0)
      throw At("rate", "„rate“ gehört zu „output = raw“; eine WAV-Datei nennt sie selbst");
    if (raw_ && voice_.mode != CommandVoice::Mode::Once)
      throw At("output", "„raw“ geht nur mit „mode = once“, weil sonst niemand weiß, wo ein Satz endet");
    if (!module && lines_.contains("voice")) throw At("voice", "„voice“ gehört zu „mode = module“");
    if (module && lines_.contains("output")) throw At("output", "mit „mode = module“ gibt es kein „output“");
  }

  Wrong At(const char* key, const char* text) {
    const auto found = lines_.find(key);
    if (found != lines_.end()) line_ = found->second;
    return {text};
  }

  CommandVoice voice_;
  std::map<std::string, std::size_t, std::less<>> lines_;  // of the keys
  std::size_t line_ = 0;
  bool raw_ = false;
};

}  // namespace

std::optional<CommandVoice> ReadCommandVoice(std::string_view text, CommandVoiceProblem& problem) {
  VoiceReader reader;
  try {
    return reader.Read(text);
  } catch (const Wrong& wrong) {
    problem = {reader.Line(), wrong.text};
    return std::nullopt;
  }
}

}  // namespace lorelin::engine
