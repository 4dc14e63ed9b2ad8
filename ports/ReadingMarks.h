#pragma once

#include <cstddef>
#include <functional>
#include <optional>

namespace lorelin {

// Characters of the document, from 0; the end is the first behind.
struct MarkedRange {
  std::size_t begin = 0;
  std::size_t end = 0;

  bool operator==(const MarkedRange&) const = default;
};

// Port: the marks in the document's editor that show what is being read. They are no part of the document:
// neither saved nor copied nor undone. User-interface thread only.
class ReadingMarks {
 public:
  virtual ~ReadingMarks() = default;
  // Whether marks can be shown at all.
  [[nodiscard]] virtual bool CanShow() const = 0;
  // Marks these places instead of those that were marked; what is absent is not marked. `word`, or else
  // `sentence`, is kept in the middle third of what is seen, unless the reader has scrolled away from it.
  virtual void Show(std::optional<MarkedRange> word, std::optional<MarkedRange> sentence) = 0;
  virtual void Hide() = 0;
  // Scrolls to what is marked, and follows it again.
  virtual void Return() = 0;
  // The line comes to the top unless it is in sight with some of what follows.
  virtual void PlaceCaret(std::size_t character) = 0;
  // `handler` is called after every change of the text, whoever made it: so many characters at the place were
  // removed, and so many put in. Ask only while it matters: it may cost comparing the text. One handler; an
  // empty one ends the notification.
  virtual void OnEdited(
      std::function<void(std::size_t place, std::size_t removed, std::size_t inserted)> handler) = 0;
};

}  // namespace lorelin
