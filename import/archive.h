#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace lorelin {

// Files that lie in a zip archive, by their names in it.
using ArchiveFiles = std::map<std::string, std::string, std::less<>>;

// The files that `wanted` answers true for. Nothing is written anywhere: a name is only a name. Throws
// RuntimeError with a sentence for people, in which `kind` stands for the document ("Das E-Book"): when the
// archive is damaged, has too many files or too large ones, or needs a password.
[[nodiscard]] ArchiveFiles ReadArchive(const std::string& path, const std::string& kind,
                                       const std::function<bool(std::string_view name)>& wanted);

// The file of that name, "" where there is none.
[[nodiscard]] std::string_view FileOf(const ArchiveFiles& files, std::string_view name);

// "%41" as "A".
[[nodiscard]] std::string WithoutEscapes(std::string_view address);

// `reference` as a name in the archive, seen from the file `from`: without its fragment, with the escapes of
// addresses undone, "." and ".." followed, never above the archive.
[[nodiscard]] std::string NameInArchive(std::string_view from, std::string_view reference);

}  // namespace lorelin
