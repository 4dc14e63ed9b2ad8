#include "export/ExportPlan.h"

#include <algorithm>
#include <map>
#include <set>

#include "base/paths.h"
#include "base/text.h"
#include "base/textEncoding.h"
#include "export/fileNames.h"
#include "export/soundFormats.h"

namespace lorelin {
namespace {

// The outermost level that has more than one chapter; else the outermost.
int LevelForFiles(const std::vector<Chapter>& chapters) {
  std::map<int, std::size_t> counts;
  for (const Chapter& chapter : chapters) ++counts[chapter.level];
  for (const auto& [level, count] : counts) {
    if (count > 1) return level;
  }
  return counts.begin()->first;
}

bool IsBlankUpTo(std::string_view text, std::size_t character) {
  const std::string_view behind = FromCharacter(text, character);
  return text.substr(0, text.size() - behind.size()).find_first_not_of(" \t\n") == std::string_view::npos;
}

PlannedFile MakeFile(std::shared_ptr<const ExportText> text, const ExportChoices& choices) {
  PlannedFile file;
  file.text = std::move(text);
  file.book = choices.book;
  file.format = choices.book ? SoundFormat::Mp3 : choices.format;
  file.quality = choices.quality;
  if (!choices.book) file.subtitles = choices.subtitles;
  file.tags.author = file.text->info.author;
  file.tags.language = file.text->info.language;
  return file;
}

// A whole text, whose lengths are counted once.
CharacterRange WholeOf(std::string_view text) {
  return {0, CharacterCount(text)};
}

// What of the spoken text belongs to this part of the document. What was put in front of the text or behind
// it belongs to the first part and the last.
CharacterRange SpokenPart(const TracedText& spoken, CharacterRange written, const PlannedFile& whole) {
  const std::size_t begin = written.begin == 0 ? 0 : spoken.SpokenFrom(written.begin);
  const std::size_t end =
      written.end >= whole.written.end ? whole.spoken.end : spoken.SpokenFrom(written.end);
  return {begin, std::max(begin, end)};
}

PlannedFile ChapterFile(const PlannedFile& whole, const Chapter& chapter, std::size_t end) {
  PlannedFile file = whole;
  file.written = {chapter.position, end};
  file.spoken = SpokenPart(whole.text->spoken, file.written, whole);
  file.tags.title = chapter.title;
  std::erase_if(file.chapters, [&](const Chapter& inner) {
    return inner.position < chapter.position || inner.position >= end;
  });
  if (file.chapters.size() == 1) file.chapters.clear();
  return file;
}

}  // namespace

std::string_view EndingOf(const ExportChoices& choices) {
  return choices.book ? kBookEnding : NameOf(choices.format).ending;
}

std::vector<PlannedFile> PartsOf(const PlannedFile& whole, const std::vector<Chapter>& parts) {
  std::vector<PlannedFile> files;
  for (std::size_t i = 0; i < parts.size(); ++i) {
    const std::size_t end = i + 1 < parts.size() ? parts[i + 1].position : whole.written.end;
    files.push_back(ChapterFile(whole, parts[i], end));
  }
  return files;
}

std::vector<Chapter> ChaptersForFiles(const std::vector<Chapter>& chapters, std::string_view text) {
  std::vector<Chapter> parts;
  if (!chapters.empty()) {
    const int level = LevelForFiles(chapters);
    for (const Chapter& chapter : chapters) {
      // Two at one place are one: a title and its subtitle.
      if (chapter.level > level || (!parts.empty() && parts.back().position == chapter.position)) continue;
      parts.push_back(chapter);
    }
  }
  if (parts.empty()) {
    parts.push_back({.title = {}, .level = 1, .position = 0});
  } else if (IsBlankUpTo(text, parts.front().position)) {
    parts.front().position = 0;
  } else {
    parts.insert(parts.begin(), {.title = std::string(kBeginning), .level = 1, .position = 0});
  }
  return parts;
}

PlannedFile PlanOneFile(std::shared_ptr<const ExportText> text, const ExportChoices& choices,
                        const std::string& target) {
  PlannedFile file = MakeFile(std::move(text), choices);
  file.written = WholeOf(file.text->written);
  file.spoken = WholeOf(file.text->spoken.Text());
  file.target = target;
  file.name = PathText(NativePath(target).filename());
  file.tags.title = file.text->info.title;
  file.chapters = file.text->info.chapters;
  return file;
}

std::vector<PlannedFile> PlanExport(const std::shared_ptr<const ExportText>& text,
                                    const ExportChoices& choices, const std::string& folder,
                                    const std::string& name) {
  const std::string_view ending = EndingOf(choices);
  const std::string title = text->info.title.empty() ? name : text->info.title;
  const auto pathOf = [&](const std::string& file) {
    return PathText(NativePath(folder) / NativePath(file + std::string(ending)));
  };
  const std::vector<Chapter> parts = ChaptersForFiles(text->info.chapters, text->written);
  PlannedFile whole = PlanOneFile(text, choices, pathOf(SafeFileName(title)));
  whole.tags.title = title;
  if (choices.book || !choices.fileForEachChapter || parts.size() < 2) return {whole};
  std::vector<PlannedFile> files = PartsOf(whole, parts);
  for (std::size_t i = 0; i < parts.size(); ++i) {
    PlannedFile& file = files[i];
    file.target = pathOf(NumberedName(i + 1, parts.size(), SafeFileName(parts[i].title)));
    file.name = PathText(NativePath(file.target).filename());
    file.tags.album = title;
    file.tags.track = static_cast<int>(i + 1);
    file.tags.tracks = static_cast<int>(parts.size());
  }
  return files;
}

void MakeTargetsDistinct(std::vector<PlannedFile>& files) {
  std::set<std::string> taken;
  for (PlannedFile& file : files) {
    const std::filesystem::path path = NativePath(file.target);
    for (int number = 2; !taken.insert(LowerAscii(file.target)).second; ++number) {
      const std::string stem = PathText(path.stem()) + " (" + std::to_string(number) + ")";
      file.target = PathText(path.parent_path() / NativePath(stem + PathText(path.extension())));
      file.name = PathText(NativePath(file.target).filename());
    }
  }
}

std::string SubtitlePath(const PlannedFile& file) {
  std::filesystem::path path = NativePath(file.target);
  return PathText(path.replace_extension(NativePath(EndingOf(*file.subtitles))));
}

}  // namespace lorelin
