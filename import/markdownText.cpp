#include "import/markdownText.h"

#include <algorithm>

#include "base/text.h"

namespace lorelin {
namespace {

std::string_view TakeLine(std::string_view& text) {
  const auto end = std::min(text.find('\n'), text.size());
  const std::string_view line = text.substr(0, end);
  text.remove_prefix(std::min(end + 1, text.size()));
  return line;
}

std::string_view Trimmed(std::string_view text) {
  const auto begin = std::min(text.find_first_not_of(" \t\r"), text.size());
  text.remove_prefix(begin);
  return text.substr(0, text.find_last_not_of(" \t\r") + 1);
}

std::string Unquoted(std::string_view value) {
  value = Trimmed(value);
  const bool quoted =
      value.size() >= 2 && (value.front() == '"' || value.front() == '\'') && value.back() == value.front();
  return std::string(quoted ? value.substr(1, value.size() - 2) : value);
}

void TakeFact(std::string_view line, DocumentInfo& info) {
  const auto colon = line.find(':');
  if (colon == std::string_view::npos) return;
  const std::string key = LowerAscii(Trimmed(line.substr(0, colon)));
  const std::string value = Unquoted(line.substr(colon + 1));
  if (key == "title") info.title = value;
  if (key == "author" && !value.starts_with('[')) info.author = value;
  if (key == "lang" || key == "language") info.language = value;
}

// "---", lines "key: value", "---" or "...".
void TakeFacts(std::string_view& text, DocumentInfo& info) {
  std::string_view rest = text;
  if (Trimmed(TakeLine(rest)) != "---") return;
  DocumentInfo found;
  while (!rest.empty()) {
    const std::string_view line = TakeLine(rest);
    const std::string_view word = Trimmed(line);
    if (word == "---" || word == "...") {
      text = rest;
      info = found;
      return;
    }
    if (!line.starts_with(' ') && !line.starts_with('\t')) TakeFact(line, found);
  }
}

// The length of "[^name]" at the front of the text; 0 when there is none.
std::size_t NoteMark(std::string_view text) {
  if (!text.starts_with("[^")) return 0;
  const auto end = text.find_first_of("] \t[", 2);
  return end != std::string_view::npos && end > 2 && text[end] == ']' ? end + 1 : 0;
}

// Outside pieces of code.
std::string WithoutNoteMarks(std::string_view line) {
  std::string kept;
  bool code = false;
  for (std::size_t at = 0; at < line.size();) {
    if (line[at] == '`') code = !code;
    const std::size_t mark = code ? 0 : NoteMark(line.substr(at));
    if (mark == 0) kept += line[at];
    at += std::max<std::size_t>(mark, 1);
  }
  return kept;
}

// "# Title {#name .class}" without the braces.
std::string_view WithoutAttributes(std::string_view line) {
  if (!line.starts_with('#')) return line;
  const std::string_view trimmed = Trimmed(line);
  const auto open = trimmed.rfind(" {");
  if (open == std::string_view::npos || !trimmed.ends_with('}')) return line;
  const char first = open + 2 < trimmed.size() ? trimmed[open + 2] : ' ';
  return first == '#' || first == '.' || first == '-' ? trimmed.substr(0, open) : line;
}

char FenceOf(std::string_view line) {
  const std::string_view trimmed = Trimmed(line);
  if (trimmed.starts_with("```")) return '`';
  return trimmed.starts_with("~~~") ? '~' : '\0';
}

bool IsIndented(std::string_view line) {
  return line.starts_with("    ") || line.starts_with('\t');
}

class NoteFilter {
 public:
  std::string Filter(std::string_view text) {
    while (!text.empty()) AddLine(TakeLine(text));
    return std::move(kept_);
  }

 private:
  void AddLine(std::string_view line) {
    if (const char fence = FenceOf(line); fence != '\0' && (fence_ == '\0' || fence_ == fence)) {
      fence_ = fence_ == '\0' ? fence : '\0';
      Keep(line);
    } else if (fence_ != '\0') {
      Keep(line);
    } else if (!IsOfNote(line)) {
      Keep(IsIndented(line) ? std::string(line) : WithoutNoteMarks(WithoutAttributes(line)));
    }
  }

  // A note goes on with lines that are indented, and until the next empty one.
  bool IsOfNote(std::string_view line) {
    const std::size_t mark = NoteMark(line);
    const bool begins = mark > 0 && mark < line.size() && line[mark] == ':';
    const bool empty = Trimmed(line).empty();
    const bool goesOn = note_ && !begins && (empty || IsIndented(line) || !emptyBefore_);
    emptyBefore_ = empty;
    note_ = begins || goesOn;
    return begins || (goesOn && !empty);
  }

  void Keep(std::string_view line) { kept_.append(line).append("\n"); }

  std::string kept_;
  char fence_ = '\0';
  bool note_ = false;
  bool emptyBefore_ = false;
};

}  // namespace

std::string PrepareMarkdown(std::string_view text, DocumentInfo& info) {
  TakeFacts(text, info);
  return NoteFilter().Filter(text);
}

}  // namespace lorelin
