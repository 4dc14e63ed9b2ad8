#include "export/RenderedFile.h"

#include <exception>
#include <optional>
#include <vector>

#include "base/RuntimeError.h"
#include "base/paths.h"
#include "base/unfinishedName.h"
#include "export/RenderedBook.h"
#include "export/TextRendering.h"

namespace lorelin {
namespace {

using std::chrono::milliseconds;

SoundTags TagsOf(const PlannedFile& file, const std::vector<TimedWord>& words, milliseconds length) {
  SoundTags tags = file.tags;
  tags.length = length;
  std::size_t next = 0;
  for (const Chapter& chapter : file.chapters) {
    while (next < words.size() && words[next].written.end <= chapter.position) ++next;
    const milliseconds begin = next == 0 ? milliseconds(0) : next < words.size() ? words[next].time : length;
    // The first one of a file begins with it, for the players that count from there.
    if (tags.chapters.empty() && next > 0)
      tags.chapters.push_back({std::string(kBeginning), milliseconds(0)});
    tags.chapters.push_back({chapter.title, begin});
  }
  return tags;
}

RenderingResult Made(const PlannedFile& file, const ExportVoice& voice, SoundRendering& sound,
                     FileWriter& files, RenderingProgress& progress) {
  const std::string unfinished = PathText(UnfinishedName(NativePath(file.target)));
  TextRendering rendering(file, voice, sound, progress);
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
    return file.book ? RenderBook(file, voice, rendering, files, progress)
                     : Made(file, voice, rendering, files, progress);
  } catch (const RuntimeError& error) {
    const bool engine = error.Number() == static_cast<std::int32_t>(ErrorNumber::AutomationFailed);
    return {engine ? RenderingEnd::CutShort : RenderingEnd::NotWritten, error.what()};
  } catch (const std::exception& error) {
    return {RenderingEnd::CutShort, error.what()};
  }
}

}  // namespace lorelin
