#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>

namespace lorelin::engine {

// A file that is written under its UnfinishedName and takes the target's place when it is whole. Until then,
// and when that never happens, what was there stays as it was. A link keeps pointing to its file, a file
// keeps its permissions; a new file in a folder that others may not enter is closed to them too. Functions
// answer 0 or an errno.
class TargetFile {
 public:
  // Call Open before anything else.
  explicit TargetFile(const std::string& path);
  ~TargetFile();
  TargetFile(const TargetFile&) = delete;
  TargetFile& operator=(const TargetFile&) = delete;

  [[nodiscard]] int Open();
  [[nodiscard]] int Write(const char* bytes, std::size_t size);
  [[nodiscard]] int Seek(std::int64_t place);
  [[nodiscard]] int PutInPlace();

 private:
  [[nodiscard]] int CheckTarget();
  [[nodiscard]] int ClearStale() const;
  [[nodiscard]] int SetPermissions() const;  // where they are not those of the folder

  const std::filesystem::path target_;
  const std::filesystem::path unfinished_;
  int descriptor_ = -1;
  unsigned newMode_ = 0;   // what a new file gets here
  bool replaces_ = false;  // a file that is there
};

// A German sentence for the errno of a file that could not be written.
[[nodiscard]] std::string WriteProblem(int errorNumber);

}  // namespace lorelin::engine
