#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "export/ExportPreparation.h"
#include "export/ExportQueue.h"
#include "ports/DocumentEditor.h"
#include "ports/MessageBoxes.h"

namespace lorelin {

// What can be made of the document, for a form that asks what is wanted.
struct ExportOffer {
  std::string title;
  std::string author;
  std::chrono::seconds length{};  // roughly
  std::size_t files = 1;          // when each chapter gets its own
};

// What the user wants.
struct ExportOrder {
  ExportChoices choices;
  std::string title;
  std::string author;
  std::string folder;
};

// Sound files of the document, made beside everything else that the window does. User-interface thread only.
class SoundExport {
 public:
  // What it works with; it owns none of it.
  struct Parts {
    DocumentEditor& document;
    ExportPreparation::Parts preparation;
    SoundRendering& rendering;
    FileWriter& files;
    MessageBoxes& messageBoxes;
    std::function<DocumentInfo()> info;  // of the document, as far as it is known
    std::function<std::string()> name;   // of the document, without a file's ending
  };

  explicit SoundExport(Parts parts);

  // Nothing, after the user was told why, when there is nothing to export or nothing to do it with.
  [[nodiscard]] std::optional<ExportOffer> Offer();
  // Puts the document's files into the queue; false when the user does not want what is there replaced, or
  // was told why it cannot be.
  [[nodiscard]] bool Start(const ExportOrder& order);
  [[nodiscard]] ExportQueue& Queue() { return queue_; }
  // Whether the program may end: asks, as long as files are being made.
  [[nodiscard]] bool MayClose();

 private:
  [[nodiscard]] std::vector<TextRun> FormatsOf(const std::string& written);
  [[nodiscard]] bool MayReplace(const std::vector<PlannedFile>& files);
  void Tell(const std::string& text);

  Parts parts_;
  ExportPreparation preparation_;
  ExportQueue queue_;
};

// What the sound files of a document are called whose own file this is; "" for none.
[[nodiscard]] std::string NameForFiles(const std::string& documentFile);

// "mittel, etwa 12 MB"; "etwa 120 MB" for a format without qualities.
[[nodiscard]] std::string QualityText(SoundFormat format, SoundQuality quality, std::chrono::seconds length);
// "etwa 2 Stunden 13 Minuten", "etwa 5 Minuten", "weniger als eine Minute".
[[nodiscard]] std::string LengthText(std::chrono::seconds length);
// "34 %", "wartet", "fertig", "abgebrochen", or what went wrong.
[[nodiscard]] std::string StateText(const ExportItem& item);
// The whole queue in one sentence.
[[nodiscard]] std::string QueueText(const std::vector<ExportItem>& items,
                                    std::optional<std::chrono::seconds> left);

}  // namespace lorelin
