#include "engine/WaveFileWriter.h"

#include <bit>
#include <cerrno>
#include <system_error>

namespace lorelin::engine {
namespace {

constexpr std::size_t kBufferSize = 1 << 18;
constexpr std::uint32_t kHeaderSize = 44;

std::string ReasonFor(int errorNumber) {
  switch (errorNumber) {
    case ENOSPC:
#ifdef EDQUOT
    case EDQUOT:
#endif
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

WaveFileWriter::WaveFileWriter(const std::string& path, std::uint32_t sampleRate, std::uint64_t maxDataBytes)
    : path_(std::u8string(path.begin(), path.end())), sampleRate_(sampleRate), maxDataBytes_(maxDataBytes) {
  file_.rdbuf()->pubsetbuf(nullptr, 0);  // the blocks are large already
  errno = 0;
  file_.open(path_, std::ios::binary | std::ios::trunc);
  if (!file_) {
    Fail(errno);
    return;
  }
  buffer_.reserve(kBufferSize);
  const std::string header = Header();
  buffer_.assign(header.begin(), header.end());
}

WaveFileWriter::~WaveFileWriter() {
  if (!file_.is_open()) return;
  file_.close();
  if (finished_) return;
  std::error_code error;
  // Only a file of our own goes, never a device that a user named.
  if (std::filesystem::is_regular_file(path_, error)) std::filesystem::remove(path_, error);
}

bool WaveFileWriter::Fail(int errorNumber) {
  problem_ = "Die WAV-Datei konnte nicht geschrieben werden. " + ReasonFor(errorNumber);
  return false;
}

bool WaveFileWriter::WriteBytes(const char* bytes, std::size_t size) {
  errno = 0;
  return file_.write(bytes, static_cast<std::streamsize>(size)) ? true : Fail(errno);
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
  const bool patchable = static_cast<bool>(file_.seekp(0));
  file_.clear();
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
