#pragma once

#include <filesystem>
#include <string_view>
#include <vector>

namespace lorelin::engine {

// The files with this ending in the folder and, three levels deep, below; sorted.
[[nodiscard]] std::vector<std::filesystem::path> VoiceFilesBelow(const std::filesystem::path& folder,
                                                                 std::string_view ending);

// Where voices of a language stand among the others: German first, then English.
[[nodiscard]] int LanguageRank(std::string_view language);

}  // namespace lorelin::engine
