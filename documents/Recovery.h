#pragma once

#include <cstddef>
#include <functional>
#include <future>
#include <string>
#include <utility>
#include <vector>

#include "ports/Clock.h"
#include "ports/DocumentEditor.h"
#include "ports/FileSearch.h"
#include "ports/FileWriter.h"
#include "ports/Log.h"

namespace lorelin {

// Snapshots of texts that nobody saved, so that neither a crash nor an opened file costs what was typed. Each
// is an RTF file of its own, named after its time. Nothing here throws or shows anything; failures go to the
// log. User-interface thread only; the files are written beside it.
class Recovery {
 public:
  // What it works with; it owns none of it.
  struct Parts {
    DocumentEditor& editor;
    FileWriter& files;
    FileSearch& fileSearch;
    Clock& clock;
    Log& log;
    std::string folder;
    // Calls SnapshotDue in a few seconds.
    std::function<void()> scheduleSnapshot = [] {};
  };

  // A text that can be fetched back.
  struct Leftover {
    std::string file;
    std::string beginning;  // its first words, on one line
    std::string time;       // "21.11.2026 05:10"
  };

  static constexpr std::size_t kMostLeftovers = 5;

  explicit Recovery(Parts parts) : parts_(std::move(parts)) {}
  // Waits for a snapshot that is still being written.
  ~Recovery() { FinishWriting(); }
  Recovery(const Recovery&) = delete;
  Recovery& operator=(const Recovery&) = delete;

  // Called whenever the list of leftovers is another one.
  void OnLeftoversChanged(std::function<void()> listener) { leftoversChanged_ = std::move(listener); }

  // Looks for what earlier runs left, the newest first, and forgets the oldest.
  void Start();
  // The editor's text changed.
  void Changed();
  void SnapshotDue();
  // Waits until what SnapshotDue began is on the disk.
  void FinishWriting();
  // The document was saved, or the user wants it no more.
  void Saved();

  // Around every operation of the program that puts another text in the editor's place.
  void BeforeReplacing();
  void AfterReplacing(bool replaced);

  [[nodiscard]] const std::vector<Leftover>& Leftovers() const { return leftovers_; }
  // The leftover's text was loaded: its file is the document's own snapshot from now on.
  void Adopt(const std::string& file);
  void DiscardLeftovers();

 private:
  void Snapshot();
  void AddLeftover(const std::string& file);
  void TellLeftoversChanged() const;
  void Remove(const std::string& file);
  [[nodiscard]] std::string NewName() const;

  Parts parts_;
  std::future<void> writing_;  // typing goes on while the disk works
  std::vector<Leftover> leftovers_;
  std::function<void()> leftoversChanged_;
  std::string current_;  // the document's own snapshot; "" while there is none
  int replacing_ = 0;
  bool typed_ = false;    // by the user, since the document was another one or saved
  bool changed_ = false;  // since the last snapshot
  bool scheduled_ = false;
};

}  // namespace lorelin
