#pragma once

#include <string>

#include "ports/SoundFile.h"

namespace lorelin {

// Writes title, author, language and chapters into a sound file: ID3v2.4 with CHAP and CTOC frames for MP3,
// Vorbis comments with CHAPTERxxx for the others. Any format but Wav. False when that did not succeed; the
// file may be damaged then.
[[nodiscard]] bool WriteSoundTags(const std::string& file, SoundFormat format, const SoundTags& tags);

}  // namespace lorelin
