#pragma once

#include "german/phrase.h"
#include "german/tokens.h"

namespace lorelin {

// E-mail and web addresses and names of files: nothing is spelled out in them, their signs are said: "info at
// web Punkt de".
[[nodiscard]] Found AddressAt(const Tokens& tokens, std::size_t i);

// "C:\\Programme", "~/Bilder", "/etc/app": paths of files, alike.
[[nodiscard]] Found PathAt(const Tokens& tokens, std::size_t i);

// "#Klimawandel", "@anna": as words.
[[nodiscard]] Found TagAt(const Tokens& tokens, std::size_t i);

}  // namespace lorelin
