#pragma once

#include <wx/button.h>
#include <wx/dataview.h>
#include <wx/frame.h>
#include <wx/stattext.h>

#include <functional>
#include <map>
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

  // Tries to create the objects of all extensions that are switched on, and shows what came of it; takes its
  // time. Those that are off are left alone.
  void Check();

 private:
  struct Listed : Registration {
    bool registered = true;  // else it is only offered
  };

  void BuildList();
  void BuildButtons();
  void Fill();
  void Add();
  // Whether it was added; if not, the user has been told why.
  bool AddAs(const std::string& name, const std::string& objectName);
  void Remove();
  void Toggled(wxDataViewEvent& event);
  void SwitchTo(const Listed& extension, bool active);
  void CheckSelectedOrAll();
  void CheckRow(std::size_t row);
  [[nodiscard]] std::vector<Listed> ListAll();
  [[nodiscard]] std::optional<Listed> Selected() const;
  [[nodiscard]] std::string StateOf(const Listed& extension) const;
  [[nodiscard]] std::string Try(const std::string& objectName);
  void SelectionChanged();

  Parts parts_;
  std::vector<Listed> shown_;
  std::map<std::string, std::string> tried_;  // what came of it, by object name
  wxDataViewListCtrl* list_ = nullptr;
  wxStaticText* hint_ = nullptr;
  wxButton* remove_ = nullptr;
};

}  // namespace lorelin
