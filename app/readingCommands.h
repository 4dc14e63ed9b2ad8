#pragma once

#include "app/commands.h"
#include "ports/DocumentEditor.h"
#include "ports/EditorCommands.h"
#include "ports/MainView.h"
#include "ports/ReadingMarks.h"
#include "ports/StatusBar.h"
#include "settings/SettingsStore.h"
#include "speech/ReadingAlong.h"
#include "speech/modSpeak.h"

namespace lorelin {

// What the commands of reading along work with; all of it must outlive the table.
struct ReadingEdges {
  ReadingAlong& along;
  ModSpeak& speech;
  DocumentEditor& document;
  ReadingMarks& marks;
  EditorCommands& editing;
  MainView& view;
  StatusBar& statusBar;
  SettingsStore& settings;
};

// Following the voice in the text and steering it; "Stop" as well, which leaves the caret where the voice
// was.
void AddReadingCommands(CommandTable& commands, const ReadingEdges& edges);
// Shows in the menu what is followed.
void ShowFollowMode(const ReadingEdges& edges);

}  // namespace lorelin
