#pragma once

#include "ports/Log.h"

namespace lorelin {

// Once, when the toolkit has started: it can read the program's pictures, and what it has to complain about
// goes to the log instead of into windows of its own. The log has to outlive the toolkit's use.
void PrepareToolkit(Log& log);
// The log goes: complaints go to standard error.
void ReleaseToolkit();

}  // namespace lorelin
