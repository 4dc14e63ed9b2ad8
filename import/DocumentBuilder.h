#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "import/ImportedDocument.h"

namespace lorelin {

// Puts a document together as its reader walks through a file. Texts are UTF-8; what is no character, soft
// hyphens and other invisible ones are left out. White space between words becomes one blank, across all
// that is in between; breaks and marks come into being only when text follows.
class DocumentBuilder {
 public:
  // How far what follows stands from what comes before.
  enum class Gap { Line = 1, Paragraph = 2 };

  // Text in the current format.
  void Text(std::string_view text);
  // Text whose line ends and blanks count.
  void Preformatted(std::string_view text);
  void Break(Gap gap);
  // A line end within a paragraph; two of them make a paragraph.
  void LineBreak();
  // A mark before the next text: of a list, of the next cell in a row.
  void Mark(std::string mark) { mark_ = std::move(mark); }
  void DropMark() { mark_.clear(); }

  [[nodiscard]] const CharacterFormat& Format() const { return format_; }
  void SetFormat(const CharacterFormat& format) { format_ = format; }
  [[nodiscard]] const ParagraphFormat& Paragraph() const { return paragraph_; }
  void SetParagraph(const ParagraphFormat& paragraph) { paragraph_ = paragraph; }

  // A row of a table: breaks become blanks, and between two cells that hold text comes "; ".
  void BeginRow();
  void BeginCell();
  void EndRow();

  // A heading, in its format and with breaks around it; a chapter when it holds text. 1 for the outermost.
  void BeginHeading(int level);
  void EndHeading();
  // A chapter of which no text shows. The title is made one line; one without text is left out.
  void AddChapter(std::string_view title, int level, std::size_t position);
  void DropChapters() { document_.info.chapters.clear(); }

  // A name for the place of the next text.
  void Anchor(std::string name) { newAnchors_.push_back(std::move(name)); }
  // Where the name was given, in characters; those at the end of all text are known after Finish.
  [[nodiscard]] const std::map<std::string, std::size_t>& Anchors() const { return anchors_; }

  [[nodiscard]] std::size_t Characters() const { return characters_; }
  [[nodiscard]] DocumentInfo& Info() { return document_.info; }
  [[nodiscard]] ImportedDocument& Document() { return document_; }
  void ResolveAnchors();

  // The document; the builder is done for.
  [[nodiscard]] ImportedDocument Finish();

 private:
  // Breaks, blank and mark that are due before text.
  void WriteDue();
  void WriteMark();
  void Put(std::string_view text);
  void PutCharacter(std::string_view character);
  void EndParagraph();
  void AddParagraphs(std::size_t count, const ParagraphFormat& format);

  ImportedDocument document_;
  CharacterFormat format_;
  ParagraphFormat paragraph_;
  ParagraphFormat written_;  // of the paragraph that text is in
  std::size_t characters_ = 0;
  int breaks_ = 0;
  bool blank_ = false;  // one is due before more text of the paragraph
  std::string mark_;
  int rows_ = 0;             // within each other
  bool cellBegins_ = false;  // and text of the row comes before
  bool rowHasText_ = false;
  struct Heading {
    int level = 0;
    std::size_t byte = 0;  // where its text begins, once there is some
    std::size_t position = 0;
    bool hasText = false;
    CharacterFormat before;
  };
  std::vector<Heading> headings_;  // open ones
  std::vector<std::string> newAnchors_;
  std::map<std::string, std::size_t> anchors_;
};

// `text` as one line: white space as single blanks, none at the ends; what is no character left out.
[[nodiscard]] std::string OneLine(std::string_view text);

}  // namespace lorelin
