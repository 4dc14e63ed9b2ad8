#pragma once

#include <wx/button.h>
#include <wx/dataview.h>
#include <wx/frame.h>
#include <wx/stattext.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "extensions/registrations.h"
#include "ports/Automation.h"
#include "ports/MessageBoxes.h"

namespace lorelin {

// The window of the extension manager.
class FrmXMGR final : public wxFrame {
 public:
  // An extension that came with the program.
  struct Shipped {
    std::string name;
    std::string objectName;
    std::function<void()> install;  // makes the object known to the system
  };
  // What it works with; it owns none of it.
  struct Parts {
    Registrations& registrations;
    Automation& automation;
    MessageBoxes& messageBoxes;
    std::vector<Shipped> shipped;
  };

  explicit FrmXMGR(Parts parts);

  // Tries to create every listed object and shows what came of it; takes its time.
  void Check();

 private:
  void BuildList();
  void BuildButtons();
  void Fill();
  void Add();
  void AddAs(const std::string& name, const std::string& objectName);
  void Remove();
  void Toggled(wxDataViewEvent& event);
  [[nodiscard]] std::optional<Registration> Selected() const;
  [[nodiscard]] std::string StateOf(const std::string& objectName);
  void SelectionChanged();

  Parts parts_;
  std::vector<Registration> shown_;
  wxDataViewListCtrl* list_ = nullptr;
  wxStaticText* hint_ = nullptr;
  wxButton* remove_ = nullptr;
};

}  // namespace lorelin
