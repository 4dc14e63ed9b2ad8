#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "german/SpokenText.h"
#include "german/spokenGerman.h"
#include "speech/writtenRange.h"

namespace lorelin {

// A written text on its way to becoming a spoken one: in parts, each made when it is first asked for, so that
// the beginning of a long text can be heard at once. The first part is small, the others take no longer than
// a person notices. Both instances of the engine read the same one.
class SpelledText {
 public:
  SpelledText(std::shared_ptr<const GermanSpeller> speller, std::string_view written)
      : speller_(std::move(speller)), written_(written) {}

  [[nodiscard]] const std::string& Written() const { return written_; }
  [[nodiscard]] const GermanSpeller* Speller() const { return speller_.get(); }

  // The part's spoken text; there is always a first one. Asking for a part makes all before it.
  [[nodiscard]] std::string_view Part(std::size_t number);
  [[nodiscard]] bool IsLast(std::size_t number) const {
    return number + 1 >= parts_.size() && done_ >= written_.size();
  }

  // Where the spoken text, as far as it is made, differs from the written one; places of the whole texts.
  [[nodiscard]] const std::vector<SpokenRun>& Runs() const { return runs_; }

 private:
  void MakePart();

  std::shared_ptr<const GermanSpeller> speller_;
  std::string written_;
  std::size_t done_ = 0;  // bytes of the written text
  std::size_t writtenCharacters_ = 0;
  std::size_t spokenCharacters_ = 0;
  std::vector<std::string> parts_;
  std::vector<SpokenRun> runs_;
};

}  // namespace lorelin
