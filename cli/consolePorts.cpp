#include "cli/consolePorts.h"

#include <iostream>
#include <utility>

#include "base/text.h"
#include "cli/interruption.h"
#include "documents/richTextFile.h"
#include "platform/common/console.h"
#include "richtext/rtf.h"

namespace lorelin {

MessageAnswer ConsoleMessageBoxes::Show(std::string_view text, std::string_view title, MessageIcon,
                                        MessageButtons buttons) {
  std::cerr << title << ": " << text << '\n';
  const bool asked = !answer_ && InputIsTerminal();
  if (buttons == MessageButtons::Ok) {
    if (asked) (void)cli::AskOnTerminal("Weiter mit der Eingabetaste ");
    return MessageAnswer::Ok;
  }
  if (answer_) return *answer_;
  if (!asked) return MessageAnswer::No;
  const std::string answer = LowerAscii(WithoutBlanks(cli::AskOnTerminal("Ja oder nein? [j/n] ")));
  return answer.starts_with('j') || answer.starts_with('y') ? MessageAnswer::Yes : MessageAnswer::No;
}

MessageAnswer ConsoleMessageBoxes::Choose(std::string_view text, std::string_view title,
                                          const MessageChoices& choices) {
  std::string question =
      std::string(text) + "\nja: " + std::string(choices.yes) + "\nnein: " + std::string(choices.no);
  ReplaceAll(question, "&", "");
  return Show(question, title, MessageIcon::Question, MessageButtons::YesNo);
}

void TellCondition(const std::string& text) {
  if (!text.empty()) std::cerr << text << '\n';
}

void ConsoleStatusBar::SetMessage(std::string_view text) {
  lastMessage_ = text;
  if (wanted_ && !text.empty()) std::cerr << text << '\n';
}

std::string ConsoleDocument::RichText() {
  lorelin::RichText plain;
  plain.text = text_;
  return WriteRtf(plain);
}

void ConsoleDocument::ShowRichText(const std::string& rtf) {
  text_ = ReadRtf(rtf).text;
}

LoadedFile ConsoleDocument::LoadFile(const std::string& path) {
  StoredRichText stored = ReadRichTextFile(path);
  text_ = std::move(stored.text.text);
  return std::move(stored.file);
}

}  // namespace lorelin
