#include "import/fileBytes.h"

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <memory>

#include "import/importErrors.h"

namespace lorelin {
namespace {

using File = std::unique_ptr<std::FILE, decltype(&std::fclose)>;

File Open(const std::string& path) {
  std::error_code error;
  const auto status = std::filesystem::status(path, error);
  if (!std::filesystem::exists(status)) throw ImportError("Die Datei wurde nicht gefunden.");
  if (!std::filesystem::is_regular_file(status))
    throw ImportError("Das ist keine Datei, die sich öffnen lässt.");
  File file(std::fopen(path.c_str(), "rb"), &std::fclose);
  if (!file) throw ImportError("Die Datei darf nicht gelesen werden.");
  return file;
}

std::string Read(const std::string& path, std::size_t most) {
  const File file = Open(path);
  std::string bytes(most, '\0');
  const std::size_t size = std::fread(bytes.data(), 1, most, file.get());
  if (std::ferror(file.get()) != 0) throw ImportError("Beim Lesen der Datei ist ein Fehler aufgetreten.");
  if (size == 0) throw ImportError("Die Datei ist leer.");
  bytes.resize(size);
  return bytes;
}

}  // namespace

std::string FileBytes(const std::string& path, std::size_t most) {
  std::error_code error;
  const auto size = std::filesystem::file_size(path, error);
  if (!error && size > most) throw DocumentTooLarge();
  return Read(path, error ? most : static_cast<std::size_t>(size) + 1);
}

std::string FirstBytes(const std::string& path, std::size_t count) {
  return Read(path, count);
}

}  // namespace lorelin
