#pragma once

#include <algorithm>
#include <string>
#include <vector>

namespace lorelin {

// What fakes were asked to do, in order; several fakes can write into one.
class CallLog {
 public:
  void Add(std::string entry) { entries_.push_back(std::move(entry)); }
  void Clear() { entries_.clear(); }
  [[nodiscard]] const std::vector<std::string>& Entries() const { return entries_; }
  [[nodiscard]] bool Has(const std::string& entry) const { return Position(entry) < entries_.size(); }
  // Index of the first such entry; the number of entries when there is none.
  [[nodiscard]] std::size_t Position(const std::string& entry) const {
    return static_cast<std::size_t>(std::find(entries_.begin(), entries_.end(), entry) - entries_.begin());
  }

 private:
  std::vector<std::string> entries_;
};

}  // namespace lorelin
