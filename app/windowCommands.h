#pragma once

#include "app/FileOpening.h"
#include "app/Modes.h"
#include "app/TextSize.h"
#include "app/commands.h"
#include "documents/Documents.h"
#include "help/launches.h"
#include "ports/Clipboard.h"
#include "ports/DocumentEditor.h"
#include "ports/EditorCommands.h"
#include "ports/HelpDialogs.h"
#include "ports/VoiceDialogs.h"
#include "speech/modExport.h"
#include "speech/modSpeak.h"

namespace lorelin {

// The effects of the window's commands, by what they act on. What is given must outlive the table.

void AddSpeechCommands(CommandTable& commands, ModSpeak& speech, ModExport& exporter, VoiceDialogs& dialogs);
void AddDocumentCommands(CommandTable& commands, Documents& documents, FileOpening& opening);
void AddEditingCommands(CommandTable& commands, DocumentEditor& editor, Clipboard& clipboard,
                        EditorCommands& editing);
void AddTextSizeCommands(CommandTable& commands, TextSize& size);
void AddHelpCommands(CommandTable& commands, Modes& modes, HelpDialogs& dialogs, Launches& launches);
// When the commands that cannot always do something can.
void AddConditions(CommandTable& commands, ModSpeak& speech, EditorCommands& editing);

}  // namespace lorelin
