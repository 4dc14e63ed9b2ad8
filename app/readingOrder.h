#pragma once

#include <optional>
#include <string>
#include <vector>

#include "ports/RemoteControl.h"

namespace lorelin {

// Takes "--auswahl" out of the arguments of the program, with the files behind or before it: these are to be
// read, or else what is selected in the program in front. Nothing when it is not there; switches like "/t"
// stay.
[[nodiscard]] std::optional<RemoteOrder> TakeReadingOrder(std::vector<std::string>& arguments);

}  // namespace lorelin
