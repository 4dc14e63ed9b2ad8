#pragma once

#include <optional>
#include <utility>

#include "ports/PlaceBar.h"

namespace lorelin {

class FakePlaceBar final : public PlaceBar {
 public:
  void ShowPlace(const ShownPlace& place) override {
    shown = place;
    ++times;
  }
  void HidePlace() override { shown.reset(); }
  void FocusPlace() override { focused = true; }
  void OnPlaceChosen(std::function<void(std::size_t)> handler) override { choose = std::move(handler); }

  std::optional<ShownPlace> shown;
  int times = 0;
  bool focused = false;
  std::function<void(std::size_t)> choose;
};

}  // namespace lorelin
