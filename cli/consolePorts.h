#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "ports/Clipboard.h"
#include "ports/DocumentEditor.h"
#include "ports/MessageBoxes.h"
#include "ports/StatusBar.h"

namespace lorelin {

// Message boxes as text on standard error.
class ConsoleMessageBoxes final : public MessageBoxes {
 public:
  // `answer` is given to every question without asking. Without one a person at the terminal is asked; where
  // there is none, a question is answered with No.
  explicit ConsoleMessageBoxes(std::optional<MessageAnswer> answer) : answer_(answer) {}
  MessageAnswer Show(std::string_view text, std::string_view title, MessageIcon icon,
                     MessageButtons buttons) override;
  // Yes and No are all that can be answered.
  MessageAnswer Choose(std::string_view text, std::string_view title, const MessageChoices& choices) override;

 private:
  std::optional<MessageAnswer> answer_;
};

// What is wrong with an engine instance, as a line on standard error.
void TellCondition(const std::string& text);

// The clipboard of a program without windows: its own.
class ConsoleClipboard final : public Clipboard {
 public:
  std::string Text() override { return text_; }
  void SetText(std::string_view text) override { text_ = text; }

 private:
  std::string text_;
};

// The status bar as lines on standard error, when they are wanted.
class ConsoleStatusBar final : public StatusBar {
 public:
  explicit ConsoleStatusBar(bool wanted) : wanted_(wanted) {}
  void SetMessage(std::string_view text) override;
  [[nodiscard]] std::string Message() override { return lastMessage_; }
  void SetNotice(std::string_view, std::string_view) override {}  // who runs a command knows what it does
  void SetFirstPanel(std::string_view) override {}

 private:
  bool wanted_;
  std::string lastMessage_;
};

// A document that is only held, nothing is selected in it.
class ConsoleDocument final : public DocumentEditor {
 public:
  std::string Text() override { return text_; }
  bool IsEmpty() const override { return text_.empty(); }
  void SetText(std::string_view text) override { text_ = text; }
  std::string RichText() override;
  LoadedFile LoadFile(const std::string& path) override;
  void ShowRichText(const std::string& rtf) override;
  std::size_t SelectionStart() override { return 0; }
  std::string SelectedText() override { return {}; }
  void ReplaceSelection(std::string_view text) override { text_.insert(0, text); }

 private:
  std::string text_;
};

}  // namespace lorelin
