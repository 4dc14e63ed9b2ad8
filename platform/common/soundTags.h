#pragma once

#include <cstddef>
#include <filesystem>

#include "ports/SoundFile.h"

namespace lorelin {

// Writes title, author, language and chapters into a sound file: ID3v2.4 with CHAP and CTOC frames for MP3,
// Vorbis comments with CHAPTERxxx for the others. Any format but Wav. False when that did not succeed; the
// file may be damaged then.
[[nodiscard]] bool WriteSoundTags(const std::filesystem::path& file, SoundFormat format,
                                  const SoundTags& tags);

// More bytes than the tags can take, with the padding that is left between them and the sound.
[[nodiscard]] std::size_t RoomForSoundTags(const SoundTags& tags);

}  // namespace lorelin
