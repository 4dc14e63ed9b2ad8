#pragma once

#include <mutex>
#include <set>
#include <string>

namespace lorelin {

// A list in the cache folder, one for each process, of the files that it has begun beside their targets and
// holds no lock on. When the process was killed, the next one clears them away (see abandonedRuns.h); the
// list goes with the object. From any thread; never throws.
class UnfinishedList {
 public:
  explicit UnfinishedList(std::string cacheFolder) : cacheFolder_(std::move(cacheFolder)) {}
  ~UnfinishedList();
  UnfinishedList(const UnfinishedList&) = delete;
  UnfinishedList& operator=(const UnfinishedList&) = delete;

  // Before the file is begun: clears away what others left.
  void Add(const std::string& path);
  // The file took its target's place.
  void Remove(const std::string& path);

 private:
  void Write() const;

  const std::string cacheFolder_;
  std::mutex mutex_;
  std::set<std::string> paths_;  // absolute ones
};

}  // namespace lorelin
