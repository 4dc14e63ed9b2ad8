#include "speech/Pronunciations.h"

#include <algorithm>
#include <system_error>

#include "base/RuntimeError.h"
#include "base/modFile.h"
#include "base/paths.h"
#include "base/textEncoding.h"

namespace lorelin {
namespace {

constexpr std::string_view kWordsHead =
    "# Eigene Aussprachen für Lorelin: Kürzel = Sprechweise\n"
    "# Ein * hinter dem Kürzel: auch Wörter, die so beginnen. Eine ~ davor: groß oder klein geschrieben.\n";
constexpr std::string_view kRulesHead =
    "# Leseregeln für Lorelin: an oder aus, Ausdruck und Ersetzung, durch Tabulatoren getrennt\n";

ReadingRules ExampleRules() {
  return {{false, R"(\[[^\]]*\])", ""},
          {false, R"(\([^)]*\))", ""},
          {false, R"(https?://\S+)", "Internetadresse"}};
}

// One line of a text, with its end.
std::string_view TakeLine(std::string_view& text) {
  const auto end = text.find('\n');
  const std::string_view line = text.substr(0, end == std::string_view::npos ? text.size() : end + 1);
  text.remove_prefix(line.size());
  return line;
}

bool HasLineEnd(std::string_view text) {
  return text.find_first_of("\r\n") != std::string_view::npos;
}

}  // namespace

Pronunciations::Pronunciations(SettingsStore& settings, FileWriter& files, Log& log, std::string folder)
    : settings_(settings), files_(files), log_(log), folder_(std::move(folder)) {}

bool Pronunciations::IsOn() const {
  return lorelin::IsOn(setting::SpellOut, settings_.Get(setting::SpellOut));
}
void Pronunciations::SwitchOn(bool on) {
  settings_.Save(setting::SpellOut, on ? "1" : "0");
}
bool Pronunciations::SpeaksEmoji() const {
  return lorelin::IsOn(setting::SpeakEmoji, settings_.Get(setting::SpeakEmoji));
}
void Pronunciations::SpeakEmoji(bool speak) {
  settings_.Save(setting::SpeakEmoji, speak ? "1" : "0");
}

std::shared_ptr<SpelledText> Pronunciations::Spell(std::string_view text) {
  if (!IsOn()) return nullptr;
  const auto speller = Speller();
  auto shared = last_.lock();
  if (shared && shared->Speller() == speller.get() && shared->Written() == text) return shared;
  shared = std::make_shared<SpelledText>(speller, text);
  last_ = shared;
  return shared;
}

const std::shared_ptr<const GermanSpeller>& Pronunciations::Speller() {
  Refresh();
  if (!speller_ || emojiInSpeller_ != SpeaksEmoji()) {
    emojiInSpeller_ = SpeaksEmoji();
    speller_ = std::make_shared<const GermanSpeller>(
        SpellingOptions{.ownWords = words_, .speakEmoji = emojiInSpeller_, .rules = RulesThatCount(rules_)});
  }
  return speller_;
}

const WordList& Pronunciations::Words() {
  Refresh();
  return words_;
}

const ReadingRules& Pronunciations::Rules() {
  Refresh();
  return rules_;
}

void Pronunciations::SaveWords(const WordList& words) {
  const std::string path = FilePath(kWordsFile);
  const std::string bytes = UpdatedWordsFile(Read(path).value_or(std::string(kWordsHead)), words);
  Write(path, bytes);
  words_ = ParseWordList(bytes);
  wordsStamp_ = StampOf(path);
}

void Pronunciations::SaveRules(const ReadingRules& rules) {
  std::string bytes(kRulesHead);
  for (const ReadingRule& rule : rules) bytes += ReadingRuleLine(rule) + '\n';
  const std::string path = FilePath(kRulesFile);
  Write(path, bytes);
  rules_ = rules;
  rulesStamp_ = StampOf(path);
}

std::string Pronunciations::FilePath(std::string_view name) const {
  return folder_.empty() ? std::string() : JoinPath(folder_, {name});
}

Pronunciations::Stamp Pronunciations::StampOf(const std::string& path) const {
  Stamp stamp;
  std::error_code error;
  if (path.empty()) return stamp;
  stamp.time = std::filesystem::last_write_time(NativePath(path), error);
  if (error) return {};
  stamp.size = std::filesystem::file_size(NativePath(path), error);
  stamp.exists = !error;
  return stamp;
}

std::optional<std::string> Pronunciations::Read(const std::string& path) const {
  if (path.empty() || !FileExists(path)) return std::nullopt;
  return ReadTextFile(path);
}

void Pronunciations::Write(const std::string& path, const std::string& bytes) {
  if (path.empty()) throw RuntimeError(ErrorNumber::PathNotFound);
  std::error_code error;
  std::filesystem::create_directories(NativePath(folder_), error);
  files_.Replace(path, bytes);
  speller_.reset();
}

// A file that cannot be read leaves what was known.
void Pronunciations::Refresh() {
  const auto follow = [&](std::string_view name, std::optional<Stamp>& known, const auto& take) {
    const std::string path = FilePath(name);
    const Stamp now = StampOf(path);
    if (known && *known == now) return;
    known = now;
    try {
      take(Read(path));
      speller_.reset();
    } catch (const RuntimeError& error) {
      log_.Write(path + ": " + error.what());
    }
  };
  follow(kWordsFile, wordsStamp_,
         [&](const std::optional<std::string>& text) { words_ = ParseWordList(text.value_or("")); });
  follow(kRulesFile, rulesStamp_, [&](const std::optional<std::string>& text) {
    rules_ = text ? ParseReadingRules(*text) : ExampleRules();
  });
}

std::string UpdatedWordsFile(std::string_view old, const WordList& words) {
  std::string updated;
  WordList missing = words;
  while (!old.empty()) {
    const std::string_view line = TakeLine(old);
    const WordList had = ParseWordList(line);
    if (!had.empty()) {
      const auto kept = std::find(missing.begin(), missing.end(), had.front());
      if (kept == missing.end()) continue;
      missing.erase(kept);
    }
    updated += line;
  }
  if (!updated.empty() && !updated.ends_with('\n')) updated += '\n';
  for (const OwnWord& word : missing) updated += WordListLine(word) + '\n';
  return updated;
}

WordList WithWord(WordList words, const std::optional<OwnWord>& old, const OwnWord& word) {
  std::erase_if(words, [&](const OwnWord& other) {
    return other == old || (other.written == word.written && other.wholeWord == word.wholeWord &&
                            other.matchCase == word.matchCase);
  });
  words.push_back(word);
  return words;
}

OwnWord WordFor(const WordList& words, const std::string& written) {
  const auto found =
      std::find_if(words.begin(), words.end(), [&](const OwnWord& word) { return word.written == written; });
  return found != words.end()
             ? *found
             : OwnWord{.written = written, .spoken = "", .wholeWord = true, .matchCase = true};
}

std::optional<std::string> WordProblem(const OwnWord& word) {
  if (word.written.empty()) return "Bitte geben Sie an, was im Text steht.";
  if (HasLineEnd(word.written) || HasLineEnd(word.spoken)) return "Eine Aussprache hat nur eine Zeile.";
  if (word.written.find('=') != std::string::npos) return "Im Text darf kein Gleichheitszeichen stehen.";
  // Whatever else the file could not give back.
  if (ParseWordList(WordListLine(word)) == WordList{word}) return std::nullopt;
  return "Mit Leerzeichen oder den Zeichen „#“ und „~“ darf das Geschriebene nicht beginnen, mit Leerzeichen "
         "oder "
         "„*“ nicht enden, und die Sprechweise mit Leerzeichen weder beginnen noch enden.";
}

}  // namespace lorelin
