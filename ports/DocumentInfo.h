#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace lorelin {

struct Chapter {
  std::string title;         // one line
  int level = 1;             // 1 for the outermost
  std::size_t position = 0;  // of its first character in the document's text, in characters

  bool operator==(const Chapter&) const = default;
};

// What a document tells of itself besides its text. A text is "" where the document says nothing.
struct DocumentInfo {
  std::string title{};
  std::string author{};
  std::string language{};           // RFC 5646, "de-AT"
  std::vector<Chapter> chapters{};  // in the order of their positions

  bool operator==(const DocumentInfo&) const = default;
};

}  // namespace lorelin
