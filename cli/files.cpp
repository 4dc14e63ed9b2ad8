#include "cli/files.h"

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <string_view>
#include <system_error>
#include <vector>

#include "base/RuntimeError.h"
#include "base/modFile.h"
#include "base/paths.h"
#include "base/textEncoding.h"
#include "base/unfinishedName.h"
#include "cli/Failure.h"
#include "cli/interruption.h"
#include "platform/common/console.h"

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
#ifdef EDQUOT
    case EDQUOT:
#endif
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

std::string ReadAll(ByteStream& stream, const std::string& name) {
  std::string bytes;
  std::vector<char> block(1 << 16);
  while (true) {
    const std::ptrdiff_t size = stream.Read(block);
    ThrowIfInterrupted();
    if (size < 0) throw Unreadable(name, Reason(static_cast<int>(-size)));
    if (size == 0) return WithPlainLineEnds(DecodeText(bytes));
    bytes.append(block.data(), static_cast<std::size_t>(size));
    if (bytes.size() > kMostBytes) throw Unreadable(name, "Der Text ist zu lang");
  }
}

std::string ReadPipe(const fs::path& path, const std::string& name) {
  ByteStream stream(path);
  return ReadAll(stream, name);
}

std::string ReadInput() {
  ByteStream stream;
  return ReadAll(stream, "Standardeingabe");
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
  return input == "-" ? ReadInput() : ReadNamed(input);
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
  const bool isFolder = before == fs::file_type::directory;
  if (before != fs::file_type::not_found && before != fs::file_type::regular && !isFolder)
    throw Unwritable(target, "Das ist keine gewöhnliche Datei");
  if (isFolder) throw Unwritable(target, Reason(EISDIR));
  errno = 0;
  std::ofstream file(path, std::ios::binary | std::ios::app);
  if (!file) throw Unwritable(target, Reason(errno));
  file.close();
  if (before == fs::file_type::not_found) fs::remove(path, error);
}

}  // namespace lorelin::cli
