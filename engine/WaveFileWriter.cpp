#include "engine/WaveFileWriter.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <bit>
#include <cerrno>
#include <utility>

namespace lorelin::engine {
namespace {

constexpr std::size_t kBufferSize = 1 << 18;
constexpr std::uint32_t kHeaderSize = 44;

std::string ReasonFor(int errorNumber) {
  switch (errorNumber) {
    case ENOSPC:
    case EDQUOT:
      return "Auf dem Datenträger ist kein Speicherplatz mehr frei.";
    case EACCES:
    case EPERM:
    case EROFS:
      return "In die Datei darf nicht geschrieben werden.";
    case ENOENT:
    case ENOTDIR:
      return "Den Ordner gibt es nicht.";
    case EISDIR:
      return "Der Name gehört einem Ordner.";
    case EFBIG:
      return "Das Dateisystem erlaubt keine so große Datei.";
    default:
      return "Beim Schreiben trat ein Fehler auf.";
  }
}

void AppendNumber(std::string& bytes, std::uint32_t number, unsigned size) {
  for (unsigned i = 0; i < size; ++i) bytes.push_back(static_cast<char>(number >> (8 * i)));
}

}  // namespace

WaveFileWriter::WaveFileWriter(std::string path, std::uint32_t sampleRate, std::uint64_t maxDataBytes)
    : path_(std::move(path)), sampleRate_(sampleRate), maxDataBytes_(maxDataBytes) {
  file_ = open(path_.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
  if (file_ < 0) {
    Fail(errno);
    return;
  }
  buffer_.reserve(kBufferSize);
  const std::string header = Header();
  buffer_.assign(header.begin(), header.end());
}

WaveFileWriter::~WaveFileWriter() {
  if (file_ < 0) return;
  close(file_);
  if (finished_) return;
  struct stat status {};
  // Only a file of our own goes, never a device that a user named.
  if (stat(path_.c_str(), &status) == 0 && S_ISREG(status.st_mode)) unlink(path_.c_str());
}

bool WaveFileWriter::Fail(int errorNumber) {
  problem_ = "Die WAV-Datei konnte nicht geschrieben werden. " + ReasonFor(errorNumber);
  return false;
}

bool WaveFileWriter::WriteBytes(const char* bytes, std::size_t size) {
  while (size > 0) {
    const ssize_t written = write(file_, bytes, size);
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return Fail(errno);
    bytes += written;
    size -= static_cast<std::size_t>(written);
  }
  return true;
}

bool WaveFileWriter::Flush() {
  const bool written = WriteBytes(buffer_.data(), buffer_.size());
  buffer_.clear();
  return written;
}

bool WaveFileWriter::Write(std::span<const std::int16_t> samples) {
  if (!problem_.empty()) return false;
  dataBytes_ += samples.size_bytes();
  if (dataBytes_ > maxDataBytes_) {
    problem_ = "Der Text ist zu lang für eine WAV-Datei (höchstens 4 GB). Es wurde keine Datei geschrieben.";
    return false;
  }
  static_assert(std::endian::native == std::endian::little, "the samples go into the file as they are");
  const auto* const bytes = reinterpret_cast<const char*>(samples.data());
  buffer_.insert(buffer_.end(), bytes, bytes + samples.size_bytes());
  return buffer_.size() < kBufferSize || Flush();
}

bool WaveFileWriter::Finish() {
  if (!problem_.empty() || !Flush()) return false;
  const std::string header = Header();
  const bool patchable = lseek(file_, 0, SEEK_SET) == 0;
  if (patchable && !WriteBytes(header.data(), header.size())) return false;
  finished_ = true;
  return true;
}

std::string WaveFileWriter::Header() const {
  constexpr std::uint32_t kBytesPerSample = 2;
  const auto size = static_cast<std::uint32_t>(dataBytes_);
  std::string header = "RIFF";
  AppendNumber(header, size + kHeaderSize - 8, 4);
  header += "WAVEfmt ";
  AppendNumber(header, 16, 4);  // size of this chunk
  AppendNumber(header, 1, 2);   // PCM
  AppendNumber(header, 1, 2);   // channels
  AppendNumber(header, sampleRate_, 4);
  AppendNumber(header, sampleRate_ * kBytesPerSample, 4);
  AppendNumber(header, kBytesPerSample, 2);
  AppendNumber(header, 8 * kBytesPerSample, 2);
  header += "data";
  AppendNumber(header, size, 4);
  return header;
}

}  // namespace lorelin::engine
