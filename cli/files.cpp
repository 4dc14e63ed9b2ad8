#include "cli/files.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <filesystem>
#include <string_view>
#include <system_error>

#include "base/RuntimeError.h"
#include "base/modFile.h"
#include "base/paths.h"
#include "base/textEncoding.h"
#include "base/unfinishedName.h"
#include "cli/Failure.h"
#include "cli/interruption.h"

namespace lorelin::cli {
namespace {

namespace fs = std::filesystem;

// Weeks of speech; a device without end is given up there.
constexpr std::size_t kMostBytes = std::size_t{64} << 20;

std::string Reason(int errorNumber) {
  switch (errorNumber) {
    case EACCES:
    case EPERM:
    case EROFS:
      return ErrorText(ErrorNumber::PermissionDenied);
    case ENOENT:
    case ENOTDIR:
      return ErrorText(ErrorNumber::PathNotFound);
    case EISDIR:
      return "Das ist ein Ordner";
    case ENAMETOOLONG:
      return ErrorText(ErrorNumber::BadFileName);
    case ENOSPC:
    case EDQUOT:
      return ErrorText(ErrorNumber::DiskFull);
    default:
      return ErrorText(ErrorNumber::PathFileAccess);
  }
}

Failure Unreadable(const std::string& name, const std::string& reason) {
  return {ExitCode::NoInput, "„" + name + "“ kann nicht gelesen werden: " + reason + "."};
}

Failure Unwritable(const std::string& target, const std::string& reason) {
  return {ExitCode::NoTarget, "„" + target + "“ kann nicht geschrieben werden: " + reason + "."};
}

class Descriptor {
 public:
  explicit Descriptor(int number) : number_(number) {}
  ~Descriptor() {
    if (number_ >= 0) close(number_);
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  [[nodiscard]] int Number() const { return number_; }

 private:
  int number_;
};

std::string ReadAll(int descriptor, const std::string& name) {
  std::string bytes;
  std::array<char, 1 << 16> block{};
  while (true) {
    const ssize_t size = read(descriptor, block.data(), block.size());
    ThrowIfInterrupted();
    if (size < 0 && errno == EINTR) continue;
    if (size < 0) throw Unreadable(name, Reason(errno));
    if (size == 0) return WithPlainLineEnds(DecodeText(bytes));
    bytes.append(block.data(), static_cast<std::size_t>(size));
    if (bytes.size() > kMostBytes) throw Unreadable(name, "Der Text ist zu lang");
  }
}

std::string ReadPipe(const fs::path& path, const std::string& name) {
  const Descriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC));
  ThrowIfInterrupted();
  if (file.Number() < 0) throw Unreadable(name, Reason(errno));
  return ReadAll(file.Number(), name);
}

std::string ReadNamed(const std::string& name) {
  const fs::path path = NativePath(name);
  std::error_code error;
  switch (fs::status(path, error).type()) {
    case fs::file_type::directory:
      throw Unreadable(name, Reason(EISDIR));
    case fs::file_type::fifo:
    case fs::file_type::character:
      return ReadPipe(path, name);
    default:
      break;
  }
  if (const auto size = fs::file_size(path, error); !error && size > kMostBytes) {
    throw Unreadable(name, "Der Text ist zu lang");
  }
  try {
    return ReadTextFile(name);
  } catch (const RuntimeError& reason) {
    throw Unreadable(name, reason.what());
  }
}

}  // namespace

std::string ReadText(const std::string& input) {
  return input == "-" ? ReadAll(STDIN_FILENO, "Standardeingabe") : ReadNamed(input);
}

void RequireSpeakable(const std::string& text) {
  if (text.find_first_not_of(std::string_view(" \t\n\v\f\0", 6)) == std::string::npos) {
    throw Failure(ExitCode::NoInput, "Der Text ist leer: es gibt nichts vorzulesen.");
  }
}

void RequireTarget(const std::string& target, const std::string& input) {
  const fs::path path = FollowedLinks(NativePath(target));
  std::error_code error;
  if (input != "-" && fs::equivalent(path, NativePath(input), error) && fs::is_regular_file(path, error)) {
    throw Failure(ExitCode::Usage, "Die Tondatei würde den Text „" + input + "“ ersetzen.");
  }
  const fs::file_type before = fs::status(path, error).type();
  // A sound file is written beside its place and put there when it is whole: nothing for pipes and devices.
  const bool possible = before == fs::file_type::not_found || before == fs::file_type::regular ||
                        before == fs::file_type::directory;
  if (!possible) throw Unwritable(target, "Das ist keine gewöhnliche Datei");
  const Descriptor file(open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0666));
  if (file.Number() < 0) throw Unwritable(target, Reason(errno));
  if (before == fs::file_type::not_found) fs::remove(path, error);
}

}  // namespace lorelin::cli
