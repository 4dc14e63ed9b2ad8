#include "engine/SoundFileWriter.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <utility>

namespace lorelin::engine {
namespace {

constexpr std::size_t kBufferSize = 1 << 18;

struct Encoding {
  int format;
  // Of SFC_SET_COMPRESSION_LEVEL, by SoundQuality.
  std::array<double, kSoundQualities> levels;
};

// With speech, MP3 comes to 33, 48 and 64 kbit/s, Opus to 17, 23 and 38, Vorbis to 34, 45 and 59.
Encoding EncodingOf(SoundFormat format) {
  switch (format) {
    case SoundFormat::Mp3:
      return {SF_FORMAT_MPEG | SF_FORMAT_MPEG_LAYER_III, {0.8618, 0.7632, 0.6579}};
    case SoundFormat::Opus:
      return {SF_FORMAT_OGG | SF_FORMAT_OPUS, {0.96, 0.93, 0.86}};
    case SoundFormat::Vorbis:
      return {SF_FORMAT_OGG | SF_FORMAT_VORBIS, {0.9, 0.7, 0.43}};
    default:
      return {SF_FORMAT_FLAC | SF_FORMAT_PCM_16, {1, 1, 1}};
  }
}

constexpr std::uint32_t kOpusRate = 24000;

bool TakesRate(SoundFormat format, std::uint32_t rate) {
  constexpr std::array<std::uint32_t, 5> kOpusRates{8000, 12000, 16000, 24000, 48000};
  return format != SoundFormat::Opus ||
         std::find(kOpusRates.begin(), kOpusRates.end(), rate) != kOpusRates.end();
}

}  // namespace

// Collects what the library writes in small pieces, and keeps the first error.
class SoundFileWriter::Bytes {
 public:
  explicit Bytes(const std::string& path) : file_(path), error_(file_.Open()) {
    buffer_.reserve(kBufferSize);
  }

  [[nodiscard]] int Error() const { return error_; }
  [[nodiscard]] int PutInPlace() {
    Flush();
    return error_ != 0 ? error_ : file_.PutInPlace();
  }

  static SF_VIRTUAL_IO Functions() {
    return {.get_filelen = [](void* self) { return static_cast<Bytes*>(self)->length_; },
            .seek = [](sf_count_t offset, int whence,
                       void* self) { return static_cast<Bytes*>(self)->Seek(offset, whence); },
            .read = [](void*, sf_count_t, void*) { return sf_count_t{0}; },
            .write = [](const void* bytes, sf_count_t size,
                        void* self) { return static_cast<Bytes*>(self)->Write(bytes, size); },
            .tell = [](void* self) { return static_cast<Bytes*>(self)->place_; }};
  }

 private:
  sf_count_t Write(const void* bytes, sf_count_t size) {
    if (error_ != 0 || size <= 0) return 0;
    const char* const first = static_cast<const char*>(bytes);
    buffer_.insert(buffer_.end(), first, first + size);
    place_ += size;
    length_ = std::max(length_, place_);
    if (buffer_.size() >= kBufferSize) Flush();
    return error_ == 0 ? size : 0;
  }

  sf_count_t Seek(sf_count_t offset, int whence) {
    Flush();
    if (whence == SEEK_CUR) offset += place_;
    if (whence == SEEK_END) offset += length_;
    if (error_ == 0) error_ = file_.Seek(offset);
    if (error_ == 0) place_ = offset;
    return place_;
  }

  void Flush() {
    if (error_ == 0) error_ = file_.Write(buffer_.data(), buffer_.size());
    buffer_.clear();
  }

  TargetFile file_;
  int error_;
  std::vector<char> buffer_;
  sf_count_t place_ = 0;
  sf_count_t length_ = 0;
};

SoundFileWriter::SoundFileWriter(const std::string& path, std::uint32_t sampleRate, SoundFormat format,
                                 SoundQuality quality)
    : bytes_(std::make_unique<Bytes>(path)) {
  if (bytes_->Error() != 0) {
    Fail(bytes_->Error());
    return;
  }
  const bool same = TakesRate(format, sampleRate);
  if (!same) resampler_ = std::make_unique<StreamResampler>(sampleRate, kOpusRate);
  OpenEncoder(format, quality, same ? sampleRate : kOpusRate);
}

SoundFileWriter::~SoundFileWriter() {
  if (encoder_ != nullptr) sf_close(encoder_);
}

void SoundFileWriter::OpenEncoder(SoundFormat format, SoundQuality quality, std::uint32_t rate) {
  const Encoding encoding = EncodingOf(format);
  SF_INFO info{};
  info.samplerate = static_cast<int>(rate);
  info.channels = 1;
  info.format = encoding.format;
  static SF_VIRTUAL_IO functions = Bytes::Functions();
  encoder_ = sf_open_virtual(&functions, SFM_WRITE, &info, bytes_.get());
  if (encoder_ == nullptr) {
    problem_ = "Dieses Tonformat kann hier nicht geschrieben werden.";
    return;
  }
  // Both count only before the first sample. An average rate comes near the size that one was shown, and has
  // the header that tells players where the sound begins and ends; a constant one has none.
  int mode = SF_BITRATE_MODE_AVERAGE;
  if (format == SoundFormat::Mp3) sf_command(encoder_, SFC_SET_BITRATE_MODE, &mode, sizeof mode);
  double level = encoding.levels.at(static_cast<std::size_t>(quality));
  sf_command(encoder_, SFC_SET_COMPRESSION_LEVEL, &level, sizeof level);
}

bool SoundFileWriter::Fail(int errorNumber) {
  problem_ = "Die Tondatei konnte nicht geschrieben werden. " + WriteProblem(errorNumber);
  return false;
}

bool SoundFileWriter::Encode(std::span<const std::int16_t> samples) {
  const auto count = static_cast<sf_count_t>(samples.size());
  const bool taken = sf_write_short(encoder_, samples.data(), count) == count;
  if (bytes_->Error() != 0) return Fail(bytes_->Error());
  return taken || Fail(EIO);
}

bool SoundFileWriter::Write(std::span<const std::int16_t> samples) {
  if (!problem_.empty()) return false;
  return Encode(resampler_ ? std::span<const std::int16_t>(resampler_->Next(samples)) : samples);
}

bool SoundFileWriter::Close() {
  const int closed = sf_close(std::exchange(encoder_, nullptr));
  if (bytes_->Error() != 0) return Fail(bytes_->Error());
  return closed == 0 || Fail(EIO);
}

bool SoundFileWriter::Finish() {
  if (!problem_.empty()) return false;
  if (resampler_ && !Encode(resampler_->Last())) return false;
  if (!Close()) return false;
  const int error = bytes_->PutInPlace();
  return error == 0 || Fail(error);
}

}  // namespace lorelin::engine
