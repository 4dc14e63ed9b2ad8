#include "import/fileBytes.h"

#include <filesystem>
#include <fstream>
#include <system_error>

#include "base/paths.h"
#include "import/importErrors.h"

namespace lorelin {
namespace {

std::ifstream Open(const std::string& path) {
  const std::filesystem::path name = NativePath(path);
  std::error_code error;
  const auto status = std::filesystem::status(name, error);
  if (!std::filesystem::exists(status)) throw ImportError("Die Datei wurde nicht gefunden.");
  if (!std::filesystem::is_regular_file(status))
    throw ImportError("Das ist keine Datei, die sich öffnen lässt.");
  std::ifstream file(name, std::ios::binary);
  if (!file) throw ImportError("Die Datei darf nicht gelesen werden.");
  return file;
}

std::string Read(const std::string& path, std::size_t most) {
  std::ifstream file = Open(path);
  std::string bytes(most, '\0');
  file.read(bytes.data(), static_cast<std::streamsize>(most));
  const auto size = static_cast<std::size_t>(file.gcount());
  if (file.bad()) throw ImportError("Beim Lesen der Datei ist ein Fehler aufgetreten.");
  if (size == 0) throw ImportError("Die Datei ist leer.");
  bytes.resize(size);
  return bytes;
}

}  // namespace

std::string FileBytes(const std::string& path, std::size_t most) {
  std::error_code error;
  const auto size = std::filesystem::file_size(NativePath(path), error);
  if (!error && size > most) throw DocumentTooLarge();
  return Read(path, error ? most : static_cast<std::size_t>(size) + 1);
}

std::string FirstBytes(const std::string& path, std::size_t count) {
  return Read(path, count);
}

}  // namespace lorelin
