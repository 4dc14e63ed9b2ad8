#include "voices/VoiceFolder.h"

#include <fstream>
#include <iterator>
#include <limits>
#include <system_error>

#include "base/paths.h"
#include "base/textEncoding.h"

namespace lorelin {
namespace {

namespace fs = std::filesystem;

constexpr std::uintmax_t kLargestCard = 1U << 16;

// The nearest folder that is there: the one that is asked for may still have to be made.
fs::path Existing(fs::path folder) {
  std::error_code error;
  while (!fs::is_directory(folder, error) && folder.has_relative_path()) folder = folder.parent_path();
  return folder;
}

}  // namespace

std::uintmax_t FileBytes(const fs::path& file) {
  std::error_code error;
  const std::uintmax_t size = fs::file_size(file, error);
  return error ? 0 : size;
}

VoiceFolder::VoiceFolder(const std::string& folder) : folder_(NativePath(folder)) {}

fs::path VoiceFolder::File(std::string_view name, std::string_view ending) const {
  return folder_ / NativePath(std::string(name) + std::string(ending));
}

fs::path VoiceFolder::Part(const fs::path& file) {
  fs::path part = file;
  part += ".part";
  return part;
}

bool VoiceFolder::Make() const {
  std::error_code error;
  fs::create_directories(folder_, error);
  return fs::is_directory(folder_, error);
}

bool VoiceFolder::Has(std::string_view name) const {
  return FileBytes(Model(name)) > 0 && FileBytes(Description(name)) > 0;
}

std::uintmax_t VoiceFolder::PartBytes(std::string_view name) const {
  return FileBytes(Part(Model(name)));
}

std::uintmax_t VoiceFolder::Space() const {
  std::error_code error;
  const fs::space_info space = fs::space(Existing(folder_), error);
  return error ? std::numeric_limits<std::uintmax_t>::max() : space.available;
}

std::string VoiceFolder::CardText(std::string_view name) const {
  const fs::path file = Card(name);
  if (FileBytes(file) > kLargestCard) return {};
  std::ifstream stream(file, std::ios::binary);
  return DecodeText(std::string(std::istreambuf_iterator<char>(stream), {}));
}

std::error_code VoiceFolder::PutInPlace(std::string_view name) const {
  std::error_code error;
  fs::rename(Part(Description(name)), Description(name), error);
  if (!error) fs::rename(Part(Model(name)), Model(name), error);
  return error;
}

void VoiceFolder::RemoveParts(std::string_view name) const {
  std::error_code error;
  fs::remove(Part(Model(name)), error);
  fs::remove(Part(Description(name)), error);
}

std::error_code VoiceFolder::Remove(std::string_view name) const {
  RemoveParts(name);
  std::error_code failed;
  for (const fs::path& file : {Model(name), Description(name), Card(name)}) {
    std::error_code error;
    fs::remove(file, error);
    if (error && !failed) failed = error;
  }
  return failed;
}

}  // namespace lorelin
