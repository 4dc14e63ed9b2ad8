#pragma once

#include "german/phrase.h"
#include "german/tokens.h"

namespace lorelin {

// Numbers that are said digit by digit: telephone numbers, IBAN, ISBN, postcodes, numbers of emergency calls.
[[nodiscard]] Found CodeAt(const Tokens& tokens, std::size_t i);

// "2.4.1", "192.168.0.1", "Version 2.0": numbers with points between, each point said.
[[nodiscard]] Found VersionAt(const Tokens& tokens, std::size_t i);

// "A.2.1" of an appendix, "X.509".
[[nodiscard]] Found SectionAt(const Tokens& tokens, std::size_t i);

// "DE89 3704 …", beginning with its two letters.
[[nodiscard]] Found IbanAt(const Tokens& tokens, std::size_t i);

// "DE98ZZZ09999999999" of somebody who debits accounts.
[[nodiscard]] Found CreditorAt(const Tokens& tokens, std::size_t i);

}  // namespace lorelin
