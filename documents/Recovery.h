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
#include "ports/MessageBoxes.h"
#include "ports/StatusBar.h"

namespace lorelin {

// Snapshots of texts that nobody saved, so that neither a crash nor an opened file costs what was typed. Each
// is an RTF file of its own, named after its time. What fails is told and tried again while the text is
// unsaved. User-interface thread only; the files are written beside it.
class Recovery {
 public:
  // What it works with; it owns none of it.
  struct Parts {
    DocumentEditor& editor;
    FileWriter& files;
    FileSearch& fileSearch;
    Clock& clock;
    StatusBar& statusBar;
    MessageBoxes& messageBoxes;
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
  ~Recovery();
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

  // Around every operation of the program that puts another text in the editor's place. The first throws
  // RuntimeError (75) when the user rather keeps a text that is nowhere safe.
  void BeforeReplacing();
  void AfterReplacing(bool replaced);
  // The user wants the text no more, so that nobody is asked when it is replaced.
  void LetGo() { unwanted_ = true; }
  // Makes a snapshot when something was typed since the last one; whether the text is safe then or may be
  // lost.
  [[nodiscard]] bool MayGo();

  [[nodiscard]] const std::vector<Leftover>& Leftovers() const { return leftovers_; }
  // The leftover's text was loaded: its file is the document's own snapshot from now on.
  void Adopt(const std::string& file);
  void DiscardLeftovers();

 private:
  void RemoveUnfinished();
  void Schedule();
  void Snapshot();
  void Failed(const std::string& reason);
  void Safe();
  [[nodiscard]] bool MayLose();
  void Forget();
  void ForgetSoon();
  void FinishOutdated();
  [[nodiscard]] bool IsWriting() const;
  void AddLeftover(const std::string& file);
  void TellLeftoversChanged() const;
  void Remove(const std::string& file);
  [[nodiscard]] std::string NewName() const;

  Parts parts_;
  std::future<void> writing_;  // typing goes on while the disk works
  std::string outdated_;       // the file that is being written and that nobody wants any more; "" for none
  std::vector<Leftover> leftovers_;
  std::function<void()> leftoversChanged_;
  std::string current_;  // the document's own snapshot; "" while there is none
  int replacing_ = 0;
  std::string failure_;   // of the last snapshot; "" when it worked
  bool kept_ = false;     // there is such a file
  bool typed_ = false;    // by the user, since the document was another one or saved
  bool changed_ = false;  // since the last snapshot
  bool scheduled_ = false;
  bool unwanted_ = false;
};

}  // namespace lorelin
