#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include "german/ownWords.h"
#include "german/spokenGerman.h"
#include "ports/FileWriter.h"
#include "ports/Log.h"
#include "settings/SettingsStore.h"
#include "speech/SpelledText.h"
#include "speech/readingRules.h"

namespace lorelin {

// How the user wants German to be spoken: own words and rules in two text files that every program of Lorelin
// reads, and the settings that belong to them. What was changed, here or in a file, counts from the next text
// on. User-interface thread only.
class Pronunciations {
 public:
  static constexpr std::string_view kWordsFile = "abkuerzungen.txt";
  static constexpr std::string_view kRulesFile = "leseregeln.txt";

  // Owns none of it. `folder` is where the files lie; it need not exist, and "" means that there are none.
  Pronunciations(SettingsStore& settings, FileWriter& files, Log& log, std::string folder);

  [[nodiscard]] bool IsOn() const;
  void SwitchOn(bool on);
  [[nodiscard]] bool SpeaksEmoji() const;
  void SpeakEmoji(bool speak);

  // The text as German voices get it, in the form that is shared by all who ask for the same text; null when
  // it is to stay as it is.
  [[nodiscard]] std::shared_ptr<SpelledText> Spell(std::string_view text);
  // As Spell, whether it is switched on or not.
  [[nodiscard]] const std::shared_ptr<const GermanSpeller>& Speller();

  [[nodiscard]] const WordList& Words();
  // Writes the list; lines of the file that are no words stay where they are. Throws RuntimeError, and
  // changes nothing then.
  void SaveWords(const WordList& words);

  // Without a file there are the examples, all of them off.
  [[nodiscard]] const ReadingRules& Rules();
  void SaveRules(const ReadingRules& rules);

 private:
  // What is known of a file; what it holds is read again when that has changed.
  struct Stamp {
    bool exists = false;
    std::filesystem::file_time_type time;
    std::uintmax_t size = 0;
    bool operator==(const Stamp&) const = default;
  };

  [[nodiscard]] std::string FilePath(std::string_view name) const;
  [[nodiscard]] Stamp StampOf(const std::string& path) const;
  [[nodiscard]] std::optional<std::string> Read(const std::string& path) const;
  void Write(const std::string& path, const std::string& bytes);
  void Refresh();

  SettingsStore& settings_;
  FileWriter& files_;
  Log& log_;
  std::string folder_;
  std::optional<Stamp> wordsStamp_;
  std::optional<Stamp> rulesStamp_;
  WordList words_;
  ReadingRules rules_;
  bool emojiInSpeller_ = true;
  std::shared_ptr<const GermanSpeller> speller_;
  std::weak_ptr<SpelledText> last_;
};

// The file's text with these words in the place of those that it had.
[[nodiscard]] std::string UpdatedWordsFile(std::string_view old, const WordList& words);

// The list with `word` in the place of `old`, or added to it; whatever else was said of the same writing
// goes.
[[nodiscard]] WordList WithWord(WordList words, const std::optional<OwnWord>& old, const OwnWord& word);
// What is already said about something written; else a word without a pronunciation.
[[nodiscard]] OwnWord WordFor(const WordList& words, const std::string& written);

// Why the word cannot be kept, as a German sentence; nothing when it can.
[[nodiscard]] std::optional<std::string> WordProblem(const OwnWord& word);

}  // namespace lorelin
