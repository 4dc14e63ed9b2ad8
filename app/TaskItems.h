#pragma once

#include <cstdint>
#include <functional>
#include <string_view>

#include "app/ContinuedReading.h"
#include "app/UnsavedTexts.h"
#include "ports/MessageBoxes.h"
#include "ports/TaskPane.h"
#include "scripts/TaskMenu.h"
#include "speech/modSpeak.h"

namespace lorelin {

// The groups of the task pane and what a click on one of their items does. User-interface thread only.
class TaskItems {
 public:
  // What it works with; it owns none of it.
  struct Parts {
    TaskPane& taskPane;
    MessageBoxes& messageBoxes;
    TaskMenu& scripts;
    UnsavedTexts& unsaved;
    ContinuedReading& continued;
    ModSpeak& speech;
    std::function<void(std::string_view command)> runCommand;
  };

  explicit TaskItems(Parts parts) : parts_(std::move(parts)) {}

  // The groups of unsaved texts and of what can be read on, empty, and the built-in tasks.
  void AddBuiltIn();
  void AddExportLink();
  void Clicked(std::int32_t number, TaskPaneRequest request);

 private:
  void ExportLinkClicked();

  Parts parts_;
};

}  // namespace lorelin
