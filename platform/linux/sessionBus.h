#pragma once

namespace lorelin {

// Whether there is a session bus to join. Without an address the library would start a bus of its own, which
// nobody would end.
[[nodiscard]] bool HasSessionBus();

}  // namespace lorelin
