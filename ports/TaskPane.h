#pragma once

#include <cstdint>
#include <functional>
#include <string_view>

namespace lorelin {

// What a click asks for; the numbers are the pane's own.
enum class TaskPaneRequest { Item = 0, ExportLink = 3, Restore = 4, Continue = 5 };

// Port: the side panel with groups of captioned, numbered items. User-interface thread only.
class TaskPane {
 public:
  virtual ~TaskPane() = default;
  // Adds a group at the end. A group of that name that exists already is emptied and keeps its place;
  // a group without items is not to be seen.
  virtual void AddGroup(std::string_view group) = 0;
  // A caption of dashes makes a separator, which cannot be activated.
  virtual void AddItem(std::string_view group, std::int32_t number, std::string_view caption,
                       TaskPaneRequest request = TaskPaneRequest::Item) = 0;
  // Called with the number of the item that the user activated, by mouse or keyboard, and what it asks for.
  // The handler may take its time, let events in and build groups anew.
  virtual void OnClick(std::function<void(std::int32_t, TaskPaneRequest)> handler) = 0;
};

}  // namespace lorelin
