#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "documents/Recovery.h"
#include "ports/DocumentEditor.h"

namespace lorelin {

// The editor for everything that may put another text in the place of the user's: what was typed and not
// saved goes to the recovery first, and whoever says what is shown is told. Owns neither.
class GuardedDocument final : public DocumentEditor {
 public:
  GuardedDocument(DocumentEditor& editor, Recovery& recovery) : editor_(editor), recovery_(recovery) {}

  // Called after another text was put in the place of the one that was there.
  void OnReplaced(std::function<void()> handler) { replaced_ = std::move(handler); }

  std::string Text() override { return editor_.Text(); }
  bool IsEmpty() const override { return editor_.IsEmpty(); }
  void SetText(std::string_view text) override {
    Revise(text);
    replaced_();
  }
  void Revise(std::string_view text) override {
    Replacing replacing(recovery_);
    editor_.SetText(text);
    replacing.done = true;
  }
  std::string RichText() override { return editor_.RichText(); }
  LoadedFile LoadFile(const std::string& path) override {
    LoadedFile loaded = LoadGuarded(path);
    replaced_();
    return loaded;
  }
  void ShowRichText(const std::string& rtf) override {
    ShowGuarded(rtf);
    replaced_();
  }
  std::size_t SelectionStart() override { return editor_.SelectionStart(); }
  std::string SelectedText() override { return editor_.SelectedText(); }
  void ReplaceSelection(std::string_view text) override { editor_.ReplaceSelection(text); }

 private:
  struct Replacing {
    explicit Replacing(Recovery& guard) : recovery(guard) { recovery.BeforeReplacing(); }
    ~Replacing() { recovery.AfterReplacing(done); }
    Replacing(const Replacing&) = delete;
    Replacing& operator=(const Replacing&) = delete;
    Recovery& recovery;
    bool done = false;
  };

  LoadedFile LoadGuarded(const std::string& path) {
    Replacing replacing(recovery_);
    LoadedFile loaded = editor_.LoadFile(path);
    replacing.done = true;
    return loaded;
  }
  void ShowGuarded(const std::string& rtf) {
    Replacing replacing(recovery_);
    editor_.ShowRichText(rtf);
    replacing.done = true;
  }

  DocumentEditor& editor_;
  Recovery& recovery_;
  std::function<void()> replaced_ = [] {};
};

}  // namespace lorelin
