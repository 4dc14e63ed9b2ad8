#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "app/Modes.h"
#include "app/TextAnchor.h"
#include "app/commands.h"
#include "documents/Documents.h"
#include "ports/ChapterList.h"
#include "ports/DocumentEditor.h"
#include "ports/ReadingMarks.h"
#include "ports/StatusBar.h"
#include "speech/ReadingAlong.h"
#include "speech/modSpeak.h"

namespace lorelin {

// The chapters of the document: shows them, marks the one that is read or holds the caret, goes to another.
// User-interface thread only.
class Chapters {
 public:
  // What it works with; it owns none of it.
  struct Parts {
    ChapterList& list;
    Documents& documents;
    DocumentEditor& document;
    ReadingAlong& along;
    ModSpeak& speech;
    ReadingMarks& marks;
    StatusBar& statusBar;
    Modes& modes;
  };

  explicit Chapters(Parts parts);
  ~Chapters() { parts_.list.OnChapterChosen({}); }
  Chapters(const Chapters&) = delete;
  Chapters& operator=(const Chapters&) = delete;

  void AddCommands(CommandTable& commands);
  // The document may be another one.
  void DocumentChanged();
  // Its text has so many characters now.
  void Edited(std::size_t characters);
  // What ReadingAlong tells.
  void Moved();
  // The caret may stand elsewhere.
  void CaretMoved();

  // Where they are now, as far as that is known.
  [[nodiscard]] const std::vector<Chapter>& Current() const { return chapters_; }
  [[nodiscard]] bool Exist() const { return !chapters_.empty(); }
  void Next();
  void Previous();

 private:
  void GoTo(std::size_t index);
  void ReadOrShow(std::size_t place);
  [[nodiscard]] std::size_t Here();
  [[nodiscard]] std::optional<std::size_t> ChapterAt(std::size_t character) const;
  void Mark(std::optional<std::size_t> index);

  Parts parts_;
  std::vector<Chapter> given_;  // as the document had them
  std::vector<Chapter> chapters_;
  std::vector<TextAnchor> anchors_;
  std::size_t characters_ = 0;  // of the text
  std::optional<std::size_t> marked_;
};

}  // namespace lorelin
