#pragma once

namespace lorelin {

// Whether a web view can show pages on this system. Prepares the engine when there is one; to be asked before
// the first view is made.
[[nodiscard]] bool HasBrowserEngine();

}  // namespace lorelin
