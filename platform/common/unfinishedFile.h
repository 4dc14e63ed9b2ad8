#pragma once

#include <filesystem>
#include <memory>
#include <string_view>

namespace lorelin {

// A file that takes the place of another when it is complete: written under a name of its own in the same
// folder, which goes with the object unless it was put in place. Functions answer 0 or an errno.
class UnfinishedFile {
 public:
  // `target` may be a link: what it points to is replaced. Call Open before anything else.
  explicit UnfinishedFile(const std::filesystem::path& target);
  ~UnfinishedFile();
  UnfinishedFile(const UnfinishedFile&) = delete;
  UnfinishedFile& operator=(const UnfinishedFile&) = delete;

  // Refuses (EINVAL) a target that is there and is no regular file, and (EACCES) one that may not be written.
  [[nodiscard]] int Open();
  [[nodiscard]] int Write(std::string_view bytes);
  // Makes the content durable and puts the file in the target's place.
  [[nodiscard]] int PutInPlace();
  // The name under which it is written.
  [[nodiscard]] const std::filesystem::path& Path() const { return path_; }

 private:
  struct Handle;

  std::filesystem::path target_;
  std::filesystem::path path_;
  std::unique_ptr<Handle> handle_;
};

}  // namespace lorelin
