#pragma once

#include <cstdint>

#include "app/Modes.h"
#include "documents/Documents.h"
#include "documents/Recovery.h"
#include "ports/MessageBoxes.h"
#include "ports/StatusBar.h"
#include "ports/TaskPane.h"

namespace lorelin {

// Texts that nobody saved, offered again in a group of the task pane. User-interface thread only.
class UnsavedTexts {
 public:
  // What it works with; it owns none of it.
  struct Parts {
    TaskPane& taskPane;
    StatusBar& statusBar;
    MessageBoxes& messageBoxes;
    Documents& documents;
    Recovery& recovery;
    Modes& modes;
  };

  explicit UnsavedTexts(Parts parts) : parts_(parts) {}

  // The group, empty; where it stands among the others is where this is called.
  void AddGroup();
  // Looks for what earlier runs left and says so.
  void Start();
  // Fills the group anew.
  void Offer();
  // A click on an item of the group: the text is fetched back, or all are discarded when the user agrees.
  void Clicked(std::int32_t number);

 private:
  void Restore(const Recovery::Leftover& leftover);
  void DiscardAll();

  Parts parts_;
};

}  // namespace lorelin
