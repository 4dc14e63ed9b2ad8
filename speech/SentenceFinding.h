#pragma once

#include <atomic>
#include <future>
#include <memory>
#include <optional>
#include <string>

#include "speech/SentencePlaces.h"

namespace lorelin {

// Finds all sentences of a document beside the window, which a long one would hold up.
class SentenceFinding {
 public:
  // Both parts of the document apart, since reading began between them.
  struct Found {
    SentencePlaces before;
    SentencePlaces text;
    bool within = false;  // that was in the middle of a sentence, which both of them count
  };

  SentenceFinding(std::string before, std::shared_ptr<const std::string> text);
  // Abandons what is still under way.
  ~SentenceFinding() { abandoned_ = true; }
  SentenceFinding(const SentenceFinding&) = delete;
  SentenceFinding& operator=(const SentenceFinding&) = delete;

  // Once, when it has ended; never waits.
  [[nodiscard]] std::optional<Found> Take();
  void Wait() const {
    if (finding_.valid()) finding_.wait();
  }

 private:
  std::atomic<bool> abandoned_ = false;
  std::future<std::optional<Found>> finding_;
};

}  // namespace lorelin
