#include "app/TaskItems.h"

#include <algorithm>

#include "app/commands.h"
#include "base/modFile.h"

namespace lorelin {
namespace {

constexpr std::string_view kSpeechGroup = "Lorelin";
constexpr std::string_view kExportGroup = "Export";
constexpr std::int32_t kExportItem = 1001;

}  // namespace

void TaskItems::AddBuiltIn() {
  parts_.unsaved.AddGroup();  // the first, once it has something to offer
  parts_.continued.AddGroup();
  parts_.taskPane.AddGroup(kSpeechGroup);
  for (const TaskPaneEntry& task : SpeechTasks())
    parts_.taskPane.AddItem(kSpeechGroup, task.number, task.caption);
}

void TaskItems::AddExportLink() {
  parts_.taskPane.AddGroup(kExportGroup);
  parts_.taskPane.AddItem(kExportGroup, kExportItem, "Sprachausgabe als WAV speichern",
                          TaskPaneRequest::ExportLink);
}

void TaskItems::Clicked(std::int32_t number, TaskPaneRequest request) {
  if (request == TaskPaneRequest::ExportLink) return ExportLinkClicked();
  if (request == TaskPaneRequest::Restore) return parts_.unsaved.Clicked(number);
  if (request == TaskPaneRequest::Continue) return parts_.runCommand("ContinueReading");
  const auto tasks = SpeechTasks();
  const auto found =
      std::find_if(tasks.begin(), tasks.end(), [&](const auto& task) { return task.number == number; });
  if (found != tasks.end()) return parts_.runCommand(found->command);
  parts_.scripts.Clicked(number);
}

void TaskItems::ExportLinkClicked() {
  if (FileExists(parts_.speech.TempWavPath())) return parts_.runCommand("ExportDoc");
  parts_.messageBoxes.Show("Diese Funktion steht Ihnen erst nach einem Exportvorgang zur Verfügung.",
                           "Information", MessageIcon::Information, MessageButtons::Ok);
}

}  // namespace lorelin
