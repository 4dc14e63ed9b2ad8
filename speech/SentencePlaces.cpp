#include "speech/SentencePlaces.h"

#include <algorithm>
#include <string_view>

#include "german/sentences.h"

namespace lorelin {
namespace {

constexpr std::string_view kBlanks = " \t\r\n";
constexpr std::size_t kFewWords = 500;  // bytes, which tell whether a sentence ends before them

}  // namespace

bool SentencePlaces::FindNext() {
  const Place last = begins_.back();
  if (last.byte >= text_->size()) complete_ = true;
  if (complete_) return false;
  const std::size_t end = SentenceEnd(*text_, last.byte);
  const std::string_view sentence = std::string_view(*text_).substr(last.byte, end - last.byte);
  const std::size_t words = sentence.find_last_not_of(kBlanks);
  const std::string_view gap = words == std::string_view::npos ? sentence : sentence.substr(words + 1);
  begins_.push_back(
      {end, last.character + CountCharacters(sentence), gap.find('\n') != std::string_view::npos});
  return true;
}

bool SentencePlaces::FindAll(const std::atomic<bool>& abandoned) {
  while (!abandoned && FindNext()) {
  }
  return complete_;
}

bool SentencePlaces::GoesOnIn(std::string_view behind) const {
  if (Count() == 0) return false;
  const std::string last = text_->substr(begins_[Count() - 1].byte);
  return SentenceEnd(last + std::string(behind.substr(0, kFewWords)), 0) > last.size();
}

std::size_t SentencePlaces::At(std::size_t character) {
  while (begins_.back().character <= character && FindNext()) {
  }
  const auto behind = std::partition_point(begins_.begin(), begins_.end(),
                                           [&](const Place& place) { return place.character <= character; });
  const auto found = static_cast<std::size_t>(behind - begins_.begin()) - 1;
  return Exists(found) || found == 0 ? found : found - 1;
}

bool SentencePlaces::Exists(std::size_t number) {
  while (begins_.size() <= number + 1 && FindNext()) {
  }
  return number + 1 < begins_.size();
}

CharacterRange SentencePlaces::Range(std::size_t number) {
  if (!Exists(number)) return {begins_.back().character, begins_.back().character};
  const Place& from = begins_[number];
  std::string_view sentence =
      std::string_view(*text_).substr(from.byte, begins_[number + 1].byte - from.byte);
  const std::size_t first = sentence.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {from.character, from.character};
  sentence = sentence.substr(0, sentence.find_last_not_of(kBlanks) + 1);
  return {from.character + first, from.character + CountCharacters(sentence)};
}

bool SentencePlaces::BeginsParagraph(std::size_t number) {
  return number == 0 || (Exists(number) && begins_[number].beginsParagraph);
}

std::size_t SentencePlaces::ParagraphOf(std::size_t number) {
  while (number > 0 && !BeginsParagraph(number)) --number;
  return number;
}

std::size_t SentencePlaces::NextParagraph(std::size_t number) {
  do {
    ++number;
  } while (Exists(number) && !BeginsParagraph(number));
  return number;
}

}  // namespace lorelin
