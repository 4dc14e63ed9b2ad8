#pragma once

#include <ostream>
#include <string_view>

#include "german/spokenGerman.h"

namespace lorelin::cli {

// The spoken form of the text, one line for each of its lines: sentences that go over several lines are
// spelled out as one, but their line ends stay.
void PrintSpoken(const GermanSpeller& speller, std::string_view text, std::ostream& out);

// One line for each replacement: the number of the line, what is written there and what is spoken, tabs
// between them.
void PrintTable(const GermanSpeller& speller, std::string_view text, std::ostream& out);

}  // namespace lorelin::cli
