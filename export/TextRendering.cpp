#include "export/TextRendering.h"

#include <algorithm>
#include <string_view>

#include "base/textEncoding.h"

namespace lorelin {

TextRendering::TextRendering(const PlannedFile& file, const ExportVoice& voice, SoundRendering& rendering,
                             RenderingProgress& progress, std::size_t before)
    : file_(file),
      progress_(progress),
      before_(before),
      renderer_(rendering.Make(pump_)),
      speech_(renderer_->Voice(), pump_, [&voice](std::string_view text) {
        return voice.speller ? std::make_shared<SpelledText>(voice.speller, text) : nullptr;
      }) {
  ApplyVoiceProfile(voice.profile, speech_);
  speech_.OnWordHeard([this](const HeardWord& word) { Take(word); });
  speech_.OnEndOfText([this](const EndOfText& end) { end_ = end; });
}

std::optional<EndOfText> TextRendering::Run(const std::string& target) {
  renderer_->SetSoundFile(target, file_.format, file_.quality);
  const std::string_view from = FromCharacter(file_.text->spoken.Text(), file_.spoken.begin);
  const std::string_view behind = FromCharacter(from, file_.spoken.end - file_.spoken.begin);
  speech_.Speak(from.substr(0, from.size() - behind.size()));
  while (!end_ && !progress_.cancelled) pump_.WaitForEvents();
  return end_;
}

void TextRendering::Take(const HeardWord& word) {
  const std::size_t first = file_.spoken.begin;
  const auto written = file_.text->spoken.Source({first + word.begin, first + word.end});
  if (!written) return;
  // What was put in, or put elsewhere by an extension, is no place to go back to.
  if (!words_.empty() && written->begin <= words_.back().written.begin) return;
  words_.push_back({*written, word.time});
  progress_.characters = before_ + written->end - std::min(written->end, file_.written.begin);
}

}  // namespace lorelin
