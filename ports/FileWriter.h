#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>

namespace lorelin {

// What a file is put together of: these bytes, or else what is in a file (UTF-8, either separator).
struct FilePiece {
  std::string bytes{};
  std::string file{};  // "" for none
};

// Port: writing a file so that a crash, a kill or a full disk leaves the old content or the new, never a
// part. Any thread.
class FileWriter {
 public:
  virtual ~FileWriter() = default;
  // Makes `bytes` the content of the file at `path` (UTF-8, either separator), created when it is missing.
  // When the call returns the content survives a loss of power. An existing file keeps its permissions; a
  // link keeps pointing to it. Throws RuntimeError and leaves the old file as it was: 76 when the folder does
  // not exist, 70 when it may not be written, 61 when the disk is full, 52 for an impossible name, 75 for
  // anything else.
  virtual void Replace(const std::string& path, std::string_view bytes) = 0;
  // Makes a copy of a file of any size in the same way. `keepGoing` is called every few megabytes with the
  // part that is done (0 to 1); when it answers false, nothing is written and the result is false. Throws
  // RuntimeError like Replace, and 53 when there is no file at `from`.
  virtual bool Copy(const std::string& from, const std::string& to,
                    const std::function<bool(double done)>& keepGoing) = 0;
  // Makes a file of any size of pieces, one behind the other, in the same way. Throws RuntimeError like Copy.
  virtual void Join(const std::string& path, std::span<const FilePiece> pieces) = 0;
};

}  // namespace lorelin
