#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "base/RuntimeError.h"
#include "base/textEncoding.h"
#include "base/wildcards.h"
#include "platform/common/DirectorySearch.h"
#include "scripts/interpreter.h"
#include "tests/fuzz/input.h"
#include "tests/support/TemporaryFolder.h"

using lorelin::fuzz::Hold;
namespace fs = std::filesystem;

namespace {

// The files of a small tree, by their paths in it; "link" is a link to "sub".
constexpr std::array<std::string_view, 9> kFiles{
    "a.txt", "b.wav", "ü.txt", ".hidden", "aa", "sub/a.txt", "sub/.hidden", "sub/deep/a.txt", "empty/x*y"};

class Tree {
 public:
  Tree() {
    for (const auto* const name : {"sub/deep", "empty"}) fs::create_directories(folder_.File(name));
    fs::create_directory_symlink(folder_.File("sub"), folder_.File("link"));
    Mend();
  }

  // Makes what is missing, and answers what that was.
  std::set<std::string> Mend() {
    std::set<std::string> missing;
    for (const std::string_view file : kFiles) {
      const std::string path = folder_.File(std::string(file));
      if (fs::exists(path)) continue;
      missing.emplace(file);
      lorelin::WriteFile(path, "");
    }
    Hold(fs::is_symlink(folder_.File("link")) && fs::is_directory(folder_.File("sub/deep")) &&
         fs::is_directory(folder_.File("empty")));
    return missing;
  }

  [[nodiscard]] std::string Path(std::string_view name) const {
    return folder_.Path() + "/" + std::string(name);
  }

 private:
  lorelin::TemporaryFolder folder_;
};

bool IsBetweenCharacters(std::string_view text, std::size_t at) {
  return at == text.size() || (static_cast<unsigned char>(text[at]) & 0xC0) != 0x80;
}

// Written once more in the plainest way; for UTF-8 only.
bool Matches(std::string_view pattern, std::string_view name) {
  std::vector<bool> row(name.size() + 1, false);
  row[0] = true;
  for (std::size_t i = 0; i < pattern.size(); ++i) {
    std::vector<bool> next(name.size() + 1, false);
    for (std::size_t at = 0; at <= name.size(); ++at) {
      if (!row[at]) continue;
      if (pattern[i] == '*') {
        for (std::size_t to = at; to <= name.size(); ++to)
          next[to] = IsBetweenCharacters(name, to) || next[to];
      } else if (pattern[i] == '?' && at < name.size()) {
        next[at + std::max<std::size_t>(lorelin::Utf8Length(name.substr(at)), 1)] = true;
      } else if (pattern[i] != '?' && at < name.size() && name[at] == pattern[i]) {
        next[at + 1] = true;
      }
    }
    row = std::move(next);
  }
  return row[name.size()];
}

// A pattern stays below the folder that it is put behind.
bool StaysInside(std::string_view pattern) {
  for (std::size_t begin = 0; begin <= pattern.size();) {
    const auto end = std::min(pattern.find_first_of("/\\", begin), pattern.size());
    if (pattern.substr(begin, end - begin) == "..") return false;
    begin = end + 1;
  }
  return pattern.find('\0') == std::string_view::npos;
}

// Only files that lie in the folder before the last component are gone, and only those whose names match.
void CheckGone(std::string pattern, const std::set<std::string>& gone) {
  std::replace(pattern.begin(), pattern.end(), '\\', '/');
  const auto separator = pattern.rfind('/');
  const std::string names = separator == std::string::npos ? pattern : pattern.substr(separator + 1);
  const bool many = names.find_first_of("*?") != std::string::npos;
  Hold(many || gone.size() <= 1);
  std::set<std::string> folders;
  for (const std::string& file : gone) {
    const auto end = file.rfind('/');
    const std::string name = end == std::string::npos ? file : file.substr(end + 1);
    folders.insert(end == std::string::npos ? "" : file.substr(0, end));
    Hold(names == "*.*" || lorelin::MatchesWildcards(names, name));
    Hold(!name.starts_with('.') || names.starts_with('.'));
  }
  Hold(folders.size() <= 1);
  if (separator == std::string::npos && !gone.empty()) Hold(folders.count("") == 1);
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  if (fs::is_directory("/dev/shm")) setenv("TMPDIR", "/dev/shm", 1);
  return 0;
}

// A pattern deletes files of one folder whose names match, no folders, nothing below and nothing through a
// link.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static Tree tree;
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  if (lorelin::IsValidUtf8(text)) {
    const auto end = std::min(text.find('\n'), text.size());
    const std::string_view name = text.substr(std::min(end + 1, text.size()));
    Hold(lorelin::MatchesWildcards(text.substr(0, end), name) == Matches(text.substr(0, end), name));
  }
  if (size > 200 || !StaysInside(text)) return 0;
  lorelin::DirectorySearch search;
  bool refused = false;
  try {
    lorelin::DeleteFiles(tree.Path(text), search);
  } catch (const lorelin::RuntimeError&) {
    refused = true;
  }
  const std::set<std::string> gone = tree.Mend();
  Hold(refused == gone.empty());
  CheckGone(std::string(text), gone);
  return 0;
}
