#include "speech/SentenceFinding.h"

#include <chrono>
#include <utility>

namespace lorelin {
namespace {

constexpr std::size_t kShort = 16 << 10;  // bytes, which take a millisecond

}  // namespace

SentenceFinding::SentenceFinding(std::string before, std::shared_ptr<const std::string> text) {
  const bool isShort = before.size() + text->size() <= kShort;
  finding_ = std::async(
      isShort ? std::launch::deferred : std::launch::async,
      [this, before = std::move(before), text = std::move(text)]() mutable -> std::optional<Found> {
        Found found{.before = SentencePlaces(std::move(before)), .text = SentencePlaces(std::move(text))};
        if (!found.before.FindAll(abandoned_) || !found.text.FindAll(abandoned_)) return std::nullopt;
        found.within = found.before.GoesOnIn(*found.text.Text());
        return found;
      });
}

std::optional<SentenceFinding::Found> SentenceFinding::Take() {
  if (!finding_.valid() || finding_.wait_for(std::chrono::seconds(0)) == std::future_status::timeout)
    return std::nullopt;
  return finding_.get();
}

}  // namespace lorelin
