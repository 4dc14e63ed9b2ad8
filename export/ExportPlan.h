#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "export/subtitles.h"
#include "ports/DocumentInfo.h"
#include "ports/SoundFile.h"
#include "richtext/RichText.h"
#include "speech/TracedText.h"

namespace lorelin {

// What stands in front of the first chapter is called.
inline constexpr std::string_view kBeginning = "Anfang";

// How a text is to become sound files.
struct ExportChoices {
  SoundFormat format = SoundFormat::Mp3;
  SoundQuality quality = SoundQuality::Usual;
  bool fileForEachChapter = false;
  std::optional<SubtitleFormat> subtitles;
  bool book =
      false;  // an EPUB with the sound of its text in it, which is MP3; none of the others but quality

  bool operator==(const ExportChoices&) const = default;
};

// A text as it is to be spoken, and the document that it was made of. Several files of one export share it.
struct ExportText {
  std::string written;  // the document's text
  TracedText spoken;    // whose source it is
  DocumentInfo info;
  std::vector<TextRun> formats{};  // of the document's text; none where nobody wants to see them
};

// One sound file that is to be made.
struct PlannedFile {
  std::shared_ptr<const ExportText> text;
  CharacterRange spoken;   // what of the spoken text is in it
  CharacterRange written;  // and of the document
  std::string name;        // what the user is shown
  std::string target;      // its path
  SoundFormat format = SoundFormat::Mp3;
  SoundQuality quality = SoundQuality::Usual;
  std::optional<SubtitleFormat> subtitles;
  SoundTags tags;                 // without the times, which are not known yet
  std::vector<Chapter> chapters;  // that are marked in it
  bool book = false;              // an EPUB with the sound of its text
};

// The one file at `target`, with the chapters as marks in it.
[[nodiscard]] PlannedFile PlanOneFile(std::shared_ptr<const ExportText> text, const ExportChoices& choices,
                                      const std::string& target);

// The files of a text in this folder: one named after `name`, or one for each chapter, numbered. `name` is
// what the document is called where it has no title.
[[nodiscard]] std::vector<PlannedFile> PlanExport(const std::shared_ptr<const ExportText>& text,
                                                  const ExportChoices& choices, const std::string& folder,
                                                  const std::string& name);

// The ending of the files: ".mp3".
[[nodiscard]] std::string_view EndingOf(const ExportChoices& choices);

// A file for each of these parts of the whole, without a target.
[[nodiscard]] std::vector<PlannedFile> PartsOf(const PlannedFile& whole, const std::vector<Chapter>& parts);

// The chapters that get a file each: those of the outermost level of which there are several, what stands in
// front of the first one as one of its own. Whole text: one chapter.
[[nodiscard]] std::vector<Chapter> ChaptersForFiles(const std::vector<Chapter>& chapters,
                                                    std::string_view text);

// Gives files that would take each other's place names of their own: "Titel (2).mp3".
void MakeTargetsDistinct(std::vector<PlannedFile>& files);

// Where the subtitles of a sound file go.
[[nodiscard]] std::string SubtitlePath(const PlannedFile& file);

}  // namespace lorelin
