#pragma once

#include "german/phrase.h"
#include "german/tokens.h"

namespace lorelin {

// "Joh 3,16", "1. Kor 13,4-7", "Ps 23": chapter and verse of a book of the Bible.
[[nodiscard]] Found ScriptureAt(const Tokens& tokens, std::size_t i);

}  // namespace lorelin
