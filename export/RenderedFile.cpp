#include "export/RenderedFile.h"

#include <exception>
#include <optional>
#include <utility>
#include <vector>

#include "base/RuntimeError.h"
#include "base/TaskPump.h"
#include "base/paths.h"
#include "base/textEncoding.h"
#include "base/unfinishedName.h"
#include "speech/SpelledSpeech.h"

namespace lorelin {
namespace {

using std::chrono::milliseconds;

// A text on its way into one file.
class Rendering {
 public:
  Rendering(const PlannedFile& file, const ExportVoice& voice, SoundRendering& rendering,
            RenderingProgress& progress)
      : file_(file),
        progress_(progress),
        renderer_(rendering.Make(pump_)),
        speech_(renderer_->Voice(), pump_, [&voice](std::string_view text) {
          return voice.speller ? std::make_shared<SpelledText>(voice.speller, text) : nullptr;
        }) {
    ApplyVoiceProfile(voice.profile, speech_);
    speech_.OnWordHeard([this](const HeardWord& word) { Take(word); });
    speech_.OnEndOfText([this](const EndOfText& end) { end_ = end; });
  }

  // Nothing when it was cancelled.
  std::optional<EndOfText> Run(const std::string& target) {
    renderer_->SetSoundFile(target, file_.format, file_.quality);
    const std::string_view from = FromCharacter(file_.text->spoken.Text(), file_.spoken.begin);
    const std::string_view behind = FromCharacter(from, file_.spoken.end - file_.spoken.begin);
    speech_.Speak(from.substr(0, from.size() - behind.size()));
    while (!end_ && !progress_.cancelled) pump_.RunPendingEvents();
    return end_;
  }
  [[nodiscard]] const std::vector<TimedWord>& Words() const { return words_; }

 private:
  void Take(const HeardWord& word) {
    const std::size_t first = file_.spoken.begin;
    const auto written = file_.text->spoken.Source({first + word.begin, first + word.end});
    if (!written) return;
    // What was put in, or put elsewhere by an extension, is no place to go back to.
    if (!words_.empty() && written->begin <= words_.back().written.begin) return;
    words_.push_back({*written, word.time});
    progress_.characters = written->end - std::min(written->end, file_.written.begin);
  }

  const PlannedFile& file_;
  RenderingProgress& progress_;
  TaskPump pump_;
  std::unique_ptr<SoundRenderer> renderer_;
  SpelledSpeech speech_;
  std::vector<TimedWord> words_;
  std::optional<EndOfText> end_;
};

SoundTags TagsOf(const PlannedFile& file, const std::vector<TimedWord>& words, milliseconds length) {
  SoundTags tags = file.tags;
  tags.length = length;
  std::size_t next = 0;
  for (const Chapter& chapter : file.chapters) {
    while (next < words.size() && words[next].written.end <= chapter.position) ++next;
    const milliseconds begin = next < words.size() ? words[next].time : length;
    tags.chapters.push_back({chapter.title, tags.chapters.empty() ? milliseconds(0) : begin});
  }
  return tags;
}

RenderingResult Made(const PlannedFile& file, const ExportVoice& voice, SoundRendering& sound,
                     FileWriter& files, RenderingProgress& progress) {
  const std::string unfinished = PathText(UnfinishedName(NativePath(file.target)));
  Rendering rendering(file, voice, sound, progress);
  const std::optional<EndOfText> end = rendering.Run(unfinished);
  if (!end) return {RenderingEnd::Cancelled, {}};
  if (!end->complete) return {RenderingEnd::CutShort, end->reason};
  const SoundTags tags = TagsOf(file, rendering.Words(), end->length);
  sound.PutInPlace(unfinished, file.target, file.format, tags);
  if (file.subtitles) {
    const auto cues = MakeCues(file.text->written, file.written, rendering.Words(), end->length);
    files.Replace(SubtitlePath(file), WriteSubtitles(cues, *file.subtitles, tags));
  }
  return {};
}

}  // namespace

RenderingResult RenderFile(const PlannedFile& file, const ExportVoice& voice, SoundRendering& rendering,
                           FileWriter& files, RenderingProgress& progress) {
  try {
    return Made(file, voice, rendering, files, progress);
  } catch (const RuntimeError& error) {
    const bool engine = error.Number() == static_cast<std::int32_t>(ErrorNumber::AutomationFailed);
    return {engine ? RenderingEnd::CutShort : RenderingEnd::NotWritten, error.what()};
  } catch (const std::exception& error) {
    return {RenderingEnd::CutShort, error.what()};
  }
}

}  // namespace lorelin
