#pragma once

#include <wx/scrolwin.h>
#include <wx/sizer.h>

#include <map>
#include <string>

#include "ports/TaskPane.h"

namespace lorelin {

// The side panel: groups of flat buttons under bold headings.
class WxTaskPane final : public wxScrolledWindow, public TaskPane {
 public:
  explicit WxTaskPane(wxWindow* parent);

  void AddGroup(std::string_view group) override;
  void AddItem(std::string_view group, std::int32_t number, std::string_view caption,
               TaskPaneRequest request) override;
  void OnClick(std::function<void(std::int32_t, TaskPaneRequest)> handler) override {
    handler_ = std::move(handler);
  }

 private:
  void EmptyGroup(wxSizer& items);
  void AddSeparator(wxSizer& items);
  void ArrangeSoon();
  void Arrange();

  struct Group {
    wxWindow* heading = nullptr;  // seen while the group has items
    wxSizer* items = nullptr;
  };

  std::map<std::string, Group, std::less<>> groups_;
  std::function<void(std::int32_t, TaskPaneRequest)> handler_;
  bool arranging_ = false;
};

}  // namespace lorelin
