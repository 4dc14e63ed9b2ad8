#pragma once

#include <cstddef>
#include <functional>
#include <string>

namespace lorelin {

// Where the voice is in a text.
struct ShownPlace {
  std::size_t sentence = 1;  // from 1
  std::size_t sentences = 1;
  std::string text;  // the same in words, with the time

  bool operator==(const ShownPlace&) const = default;
};

// Port: the part of the window that shows where the voice is, as a text and a line on which the reader can
// choose another sentence. It is there while a text is read. User-interface thread only.
class PlaceBar {
 public:
  virtual ~PlaceBar() = default;
  virtual void ShowPlace(const ShownPlace& place) = 0;
  virtual void HidePlace() = 0;
  // Gives the line the keyboard.
  virtual void FocusPlace() = 0;
  // Called with the sentence, from 1, that the reader chose. One handler; {} ends it.
  virtual void OnPlaceChosen(std::function<void(std::size_t sentence)> handler) = 0;
};

}  // namespace lorelin
