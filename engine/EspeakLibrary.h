#pragma once

#include <string>
#include <vector>

#include "engine/voiceCatalog.h"

namespace lorelin::engine {

// libespeak-ng, which keeps its state per process: there is one, used by one thread.
class EspeakLibrary {
 public:
  // Throws std::runtime_error when the library or its data is missing.
  EspeakLibrary();
  ~EspeakLibrary();
  EspeakLibrary(const EspeakLibrary&) = delete;
  EspeakLibrary& operator=(const EspeakLibrary&) = delete;

  [[nodiscard]] int SampleRate() const { return sampleRate_; }
  [[nodiscard]] static std::vector<LibraryVoice> Voices();
  // Takes the voice for what follows; false when there is none of that name.
  bool Select(const std::string& voice);

 private:
  int sampleRate_ = 0;
  std::string selected_;
};

}  // namespace lorelin::engine
