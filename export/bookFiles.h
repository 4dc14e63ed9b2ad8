#pragma once

#include <chrono>
#include <cstddef>
#include <span>
#include <string>
#include <vector>

#include "export/spokenSentences.h"

namespace lorelin {

// A part of a book that has a page, a sound file and what ties them together.
struct SpokenPart {
  std::string title;
  std::vector<SpokenParagraph> paragraphs;

  // How much of it is heard.
  [[nodiscard]] std::chrono::milliseconds Length() const;
};

// A book with its sound, as an EPUB 3 with media overlays has it.
struct SpokenBook {
  std::string title;
  std::string author;      // "" for none
  std::string language;    // RFC 5646; what can be none is left out
  std::string identifier;  // an address of its own: "urn:uuid:..."
  std::chrono::system_clock::time_point modified;
  std::vector<Chapter> chapters;  // that the list of contents names
  std::vector<SpokenPart> parts;
};

// A file within the archive.
struct BookFile {
  std::string name;
  std::string bytes;

  bool operator==(const BookFile&) const = default;
};

// All files but the sound, in their order: that which must be the first is.
[[nodiscard]] std::vector<BookFile> MakeBookFiles(const SpokenBook& book);
// Where the sound of a part belongs, numbered from 0.
[[nodiscard]] std::string SoundNameOf(std::size_t part);

}  // namespace lorelin
