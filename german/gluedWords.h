#pragma once

#include "german/phrase.h"
#include "german/tokens.h"

namespace lorelin {

// "80er", "20%ige", "3-fach", "4-Zimmer-Wohnung".
[[nodiscard]] Found GluedAt(const Tokens& tokens, std::size_t i);

}  // namespace lorelin
