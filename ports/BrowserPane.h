#pragma once

#include <functional>
#include <string>

namespace lorelin {

// Port: the pane that shows the program's local pages. User-interface thread only.
class BrowserPane {
 public:
  virtual ~BrowserPane() = default;
  // From now on nothing is fetched from the network.
  virtual void SetOffline() = 0;
  // Shows the page at this file path; loading runs on after the return.
  virtual void Navigate(const std::string& path) = 0;
  // Gives the keyboard to the page; a screen reader begins to read there.
  virtual void Focus() = 0;
  // Asked before the pane follows a link or goes to a page: true cancels. The address is as the page has it,
  // its capitals and umlauts untouched.
  virtual void OnNavigate(std::function<bool(std::string& address)> handler) = 0;
};

}  // namespace lorelin
