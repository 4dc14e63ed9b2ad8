#include "cli/consolePorts.h"

#include <iostream>

#include "app/modFile.h"

namespace lorelin {

MessageAnswer ConsoleMessageBoxes::Show(std::string_view text, std::string_view title, MessageIcon,
                                        MessageButtons buttons) {
  std::cerr << title << ": " << text << '\n';
  return buttons == MessageButtons::Ok ? MessageAnswer::Ok : MessageAnswer::Yes;
}

void ConsoleStatusBar::SetMessage(std::string_view text) {
  lastMessage_ = text;
  if (wanted_) std::cerr << text << '\n';
}

void ConsoleDocument::LoadFile(const std::string& path) {
  text_ = ReadTextFile(path);
}

}  // namespace lorelin
