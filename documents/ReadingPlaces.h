#pragma once

#include <cstddef>
#include <cstdint>
#include <future>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "ports/FileWriter.h"
#include "ports/Log.h"

namespace lorelin {

// Where the reading of each document stopped, known by its path and a number that stands for its content. A
// file of the user's own keeps them; of the documents it holds nothing else. User-interface thread only; the
// file is written beside it.
class ReadingPlaces {
 public:
  static constexpr std::size_t kMost = 1000;

  // Owns neither. The file is made in the folder when there is something to be kept.
  ReadingPlaces(FileWriter& files, Log& log, std::string folder)
      : files_(files), log_(log), folder_(std::move(folder)) {}
  // Waits for a file that is still being written.
  ~ReadingPlaces() { FinishWriting(); }
  ReadingPlaces(const ReadingPlaces&) = delete;
  ReadingPlaces& operator=(const ReadingPlaces&) = delete;

  // Whether there is anything to be found.
  [[nodiscard]] bool HasAny();
  // The place, in characters, of the document with this content, wherever it lies now, or else of the one
  // that lay there and was changed.
  [[nodiscard]] std::optional<std::size_t> Find(const std::string& path, std::string_view text);
  // Instead of what was kept of the document; beyond the most, the one that was read longest ago is
  // forgotten.
  void Keep(const std::string& path, std::string_view text, std::size_t character);
  void Forget(const std::string& path);
  // All of them, and the file; false when it cannot be removed.
  bool Clear();
  [[nodiscard]] std::string File() const;
  void FinishWriting() {
    if (writing_.valid()) writing_.wait();
  }

 private:
  struct Entry {
    std::uint64_t content = 0;
    std::size_t character = 0;
    std::string path;
  };

  [[nodiscard]] static std::optional<Entry> ParseLine(std::string_view line);
  void Load();
  [[nodiscard]] bool Remove(const std::string& path);
  void Write();

  FileWriter& files_;
  Log& log_;
  std::string folder_;
  bool loaded_ = false;
  std::vector<Entry> entries_;  // the latest last
  std::future<void> writing_;
};

}  // namespace lorelin
