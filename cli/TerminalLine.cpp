#include "cli/TerminalLine.h"

#include <iostream>

#include "platform/common/console.h"

namespace lorelin::cli {
namespace {

constexpr std::string_view kEmptied = "\r\033[K";

}  // namespace

TerminalLine::TerminalLine() : wanted_(ErrorIsTerminal()) {}

TerminalLine::~TerminalLine() {
  if (shown_) std::cerr << kEmptied << std::flush;
}

void TerminalLine::Show(std::string_view text) {
  if (!wanted_) return;
  std::cerr << kEmptied << text << std::flush;
  shown_ = true;
}

}  // namespace lorelin::cli
