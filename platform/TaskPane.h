#pragma once

#include <cstdint>
#include <functional>
#include <string_view>

namespace lorelin {

// Port: the side panel with groups of captioned, numbered items. User-interface thread only.
class TaskPane {
 public:
  virtual ~TaskPane() = default;
  // Adds a group at the end. A group of that name that exists already is emptied and keeps its place.
  virtual void AddGroup(std::string_view group) = 0;
  virtual void AddItem(std::string_view group, std::int32_t number, std::string_view caption) = 0;
  // Called with the number of the item that the user activated, by mouse or keyboard.
  virtual void OnClick(std::function<void(std::int32_t)> handler) = 0;
};

}  // namespace lorelin
