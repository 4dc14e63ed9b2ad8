#pragma once

namespace lorelin {

// Before the toolkit starts: its own dialogs speak German like the rest of the program, whatever the system's
// language is. Without any locale it would not translate at all, and know no umlauts in file names and no
// capital of "ä".
void SetUserLocale();

}  // namespace lorelin
