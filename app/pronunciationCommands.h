#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "app/commands.h"
#include "ports/DocumentEditor.h"
#include "ports/MainView.h"
#include "ports/PronunciationDialogs.h"
#include "speech/Pronunciations.h"

namespace lorelin {

// The commands about how German is spoken; the menu entry that switches the spelling out shows its state from
// now on.
void AddPronunciationCommands(CommandTable& commands, Pronunciations& pronunciations,
                              PronunciationDialogs& dialogs, DocumentEditor& editor, MainView& view);

// What the user means by a selection: its first line without blanks around it, or the word at the caret (a
// place in characters) when nothing is selected.
[[nodiscard]] std::string WordMeant(std::string_view selected, std::string_view text, std::size_t caret);

}  // namespace lorelin
