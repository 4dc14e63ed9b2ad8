#pragma once

#include <wx/slider.h>
#include <wx/statusbr.h>

#include <cstddef>
#include <functional>

#include "ports/PlaceBar.h"

namespace lorelin {

// The place of the voice in a status bar: a text in one of its fields and a line in the next one. The status
// bar has to outlive it and owns the line.
class PlaceLine : public wxEvtHandler {
 public:
  explicit PlaceLine(wxStatusBar& bar);

  void Show(const ShownPlace& place);
  void Hide();
  void Focus();
  void OnChosen(std::function<void(std::size_t)> handler) { chosen_ = std::move(handler); }

 private:
  void Arrange();
  void OnSize(wxSizeEvent& event);

  wxStatusBar& bar_;
  wxSlider* line_;
  std::function<void(std::size_t)> chosen_;
  std::size_t sentences_ = 0;
  int textWidth_ = 0;
  bool dragged_ = false;
};

// A slider that is as low as a line of text, as far as the system can show one.
void MakeThin(wxSlider& slider);

}  // namespace lorelin
