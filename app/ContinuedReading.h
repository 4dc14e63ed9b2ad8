#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "app/Modes.h"
#include "app/TextAnchor.h"
#include "documents/Documents.h"
#include "documents/ReadingPlaces.h"
#include "ports/DocumentEditor.h"
#include "ports/StatusBar.h"
#include "ports/TaskPane.h"
#include "speech/ReadingAlong.h"
#include "speech/ReadingProgress.h"
#include "speech/modSpeak.h"

namespace lorelin {

// Keeps where the reading of a document stopped and offers to go on there. User-interface thread only.
class ContinuedReading {
 public:
  // What it works with; it owns none of it.
  struct Parts {
    ReadingAlong& along;
    ReadingProgress& progress;
    ModSpeak& speech;
    Documents& documents;
    DocumentEditor& document;
    ReadingPlaces& places;
    TaskPane& taskPane;
    StatusBar& statusBar;
    Modes& modes;
  };

  explicit ContinuedReading(Parts parts) : parts_(parts) {}

  // The group of the task pane, empty; where it stands among the others is where this is called.
  void AddGroup();
  // The document may be another one.
  void DocumentChanged();
  // What ReadingAlong tells.
  void Begins();
  void Holds(bool held);
  void Ends();

  [[nodiscard]] bool CanContinue() const { return offer_.has_value(); }
  void Continue();

 private:
  void Keep();
  void ShowOffer(std::optional<TextAnchor> offer);
  [[nodiscard]] static std::optional<TextAnchor> OfferAt(const std::string& text, std::size_t character);

  Parts parts_;
  std::string shown_;  // the file whose text is shown
  FileStamp stamp_;
  std::string read_;  // the file whose text is read; "" when it is none
  std::optional<TextAnchor> offer_;
};

// The first words of what stands at the place, on one line and with an ellipsis where it goes on.
[[nodiscard]] std::string FirstWords(std::string_view text);

}  // namespace lorelin
