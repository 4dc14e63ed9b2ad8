#pragma once

#include <string>

namespace lorelin {

// A Windows error code (winerror.h) as the errno that says the same; EIO for what has none.
[[nodiscard]] int ErrnoOf(unsigned long error);

// The system's own text for an error code or HRESULT, with its number; for the log.
[[nodiscard]] std::string SystemErrorText(unsigned long error);

}  // namespace lorelin
