#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "engine/waveReading.h"

namespace lorelin::engine {

// What one says to a module of speech-dispatcher 0.11, and what it answers: lines on its standard input and
// output, each answer with a number in front ("203 OK"), the sound in blocks of samples in between.

// The first words, which make it send the sound instead of playing it, and how it is to speak. `voice` is one
// of its own, "" for the one that it has for the language.
[[nodiscard]] std::string ModuleGreeting(std::string_view language, std::string_view voice);
inline constexpr std::size_t kAnswersToGreeting = 5;

// A sentence; a mark stands before each of its pieces, which together are the sentence.
[[nodiscard]] std::string ModuleSentence(const std::vector<std::string_view>& pieces);

// Reads the answers as they come.
class ModuleAnswers {
 public:
  struct Mark {
    std::size_t piece = 0;
    std::uint64_t sample = 0;  // that stands behind it
  };

  // Takes whole answers from the front of the bytes; what is left is the beginning of one.
  void Read(std::string& bytes);

  // The answers to what was asked, without the hints that go with them ("203 OK SETTINGS RECEIVED").
  [[nodiscard]] std::size_t Count() const { return count_; }
  // One of them was no, in these words.
  [[nodiscard]] const std::string& Refusal() const { return refusal_; }
  // The text has been spoken.
  [[nodiscard]] bool Ended() const { return ended_; }
  // What is there is no module's answer.
  [[nodiscard]] bool Broken() const { return broken_; }

  [[nodiscard]] Sound& Spoken() { return sound_; }
  [[nodiscard]] const std::vector<Mark>& Marks() const { return marks_; }

 private:
  void ReadLine(std::string_view line);
  void ReadHint(int number, std::string_view text);
  void ReadForm(std::string_view text);
  void ReadBlock(std::string_view block);

  Sound sound_;
  std::vector<Mark> marks_;
  std::uint32_t bits_ = 16;
  std::uint32_t channels_ = 1;
  bool highFirst_ = false;
  std::size_t count_ = 0;
  std::string refusal_;
  bool ended_ = false;
  bool broken_ = false;
};

}  // namespace lorelin::engine
