#include "documents/ReadingPlaces.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <fstream>
#include <system_error>
#include <utility>

#include "base/RuntimeError.h"
#include "base/modFile.h"
#include "base/paths.h"

namespace lorelin {
namespace {

constexpr std::string_view kName = "reading-places";

// FNV-1a: tells two contents apart and says nothing about them.
std::uint64_t ContentNumber(std::string_view text) {
  std::uint64_t number = 0xCBF29CE484222325U;
  for (const char c : text) number = (number ^ static_cast<unsigned char>(c)) * 0x100000001B3U;
  return number;
}

// Takes a number and the blank behind it off the line.
template <typename Number>
std::optional<Number> TakeNumber(std::string_view& line, int base) {
  Number number{};
  const auto [end, error] = std::from_chars(line.data(), line.data() + line.size(), number, base);
  const auto size = static_cast<std::size_t>(end - line.data());
  if (error != std::errc() || size >= line.size() || line[size] != ' ') return std::nullopt;
  line.remove_prefix(size + 1);
  return number;
}

template <typename Number>
std::string NumberText(Number number, int base) {
  char digits[24];
  const auto [end, error] = std::to_chars(std::begin(digits), std::end(digits), number, base);
  return error == std::errc() ? std::string(std::begin(digits), end) : std::string();
}

// A path of the command line has other separators than one of the file dialog.
std::string SamePath(const std::string& path) {
  return PathText(NativePath(path));
}

// The file keeps the rights that it has before anything is in it.
void MakePrivateFile(const std::filesystem::path& path) {
  namespace fs = std::filesystem;
  std::error_code error;
  fs::create_directories(path.parent_path(), error);
  if (!fs::exists(path, error)) std::ofstream(path, std::ios::app).close();
  fs::permissions(path, fs::perms::owner_read | fs::perms::owner_write, error);
}

}  // namespace

std::string ReadingPlaces::File() const {
  return JoinPath(folder_, {kName});
}

std::optional<ReadingPlaces::Entry> ReadingPlaces::ParseLine(std::string_view line) {
  const auto content = TakeNumber<std::uint64_t>(line, 16);
  const auto character = content ? TakeNumber<std::size_t>(line, 10) : std::nullopt;
  if (!character || line.empty()) return std::nullopt;
  return Entry{*content, *character, std::string(line)};
}

// What nobody can read is as good as nothing.
void ReadingPlaces::Load() {
  if (std::exchange(loaded_, true) || !FileExists(File())) return;
  try {
    const std::string bytes = ReadFileBytes(File());
    for (std::string_view rest = bytes; !rest.empty();) {
      const std::string_view line = rest.substr(0, rest.find('\n'));
      if (auto entry = ParseLine(line)) entries_.push_back(std::move(*entry));
      rest.remove_prefix(std::min(rest.size(), line.size() + 1));
    }
  } catch (const RuntimeError& error) {
    log_.Write(File() + ": " + error.what());
  }
  if (entries_.size() > kMost)
    entries_.erase(entries_.begin(), entries_.end() - static_cast<std::ptrdiff_t>(kMost));
}

bool ReadingPlaces::HasAny() {
  Load();
  return !entries_.empty();
}

std::optional<std::size_t> ReadingPlaces::Find(const std::string& path, std::string_view text) {
  if (!HasAny()) return std::nullopt;
  const std::uint64_t content = ContentNumber(text);
  const std::string own = SamePath(path);
  const Entry* found = nullptr;
  int best = 0;
  for (const Entry& entry : entries_) {
    const int fits = (entry.content == content ? 2 : 0) + (entry.path == own ? 1 : 0);
    if (fits == 0 || fits < best) continue;
    best = fits;
    found = &entry;
  }
  return found != nullptr ? std::optional(found->character) : std::nullopt;
}

bool ReadingPlaces::Remove(const std::string& path) {
  return std::erase_if(entries_, [own = SamePath(path)](const Entry& entry) { return entry.path == own; }) >
         0;
}

void ReadingPlaces::Keep(const std::string& path, std::string_view text, std::size_t character) {
  if (path.empty() || path.find('\n') != std::string::npos) return;
  Load();
  (void)Remove(path);
  if (entries_.size() >= kMost) entries_.erase(entries_.begin());
  entries_.push_back({ContentNumber(text), character, SamePath(path)});
  Write();
}

void ReadingPlaces::Forget(const std::string& path) {
  Load();
  if (Remove(path)) Write();
}

bool ReadingPlaces::Clear() {
  FinishWriting();
  entries_.clear();
  loaded_ = true;
  std::error_code error;
  std::filesystem::remove(NativePath(File()), error);
  return !error;
}

void ReadingPlaces::Write() {
  std::string bytes;
  for (const Entry& entry : entries_) {
    bytes.append(NumberText(entry.content, 16)).append(" ").append(NumberText(entry.character, 10));
    bytes.append(" ").append(entry.path).append("\n");
  }
  FinishWriting();
  writing_ = std::async(std::launch::async, [this, path = File(), bytes = std::move(bytes)] {
    try {
      MakePrivateFile(NativePath(path));
      files_.Replace(path, bytes);
    } catch (const RuntimeError& error) {
      log_.Write(path + ": " + error.what());
    }
  });
}

}  // namespace lorelin
