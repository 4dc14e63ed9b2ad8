#include "engine/Synthesizers.h"

#include <utility>

#include "engine/CommandSynthesizer.h"
#include "engine/EspeakSynthesizer.h"
#include "engine/NaturalSynthesizer.h"
#include "engine/OnnxRuntime.h"
#include "engine/commandVoices.h"
#include "engine/naturalVoices.h"

namespace lorelin::engine {

Synthesizers::Synthesizers() {
  Add(std::make_unique<EspeakSynthesizer>(library_));
  AddNaturalVoices();
  AddCommandVoices();
}

void Synthesizers::Add(std::unique_ptr<Synthesizer> synthesizer) {
  auto voices = synthesizer->Voices();
  parts_.push_back({std::move(synthesizer), std::move(voices)});
}

void Synthesizers::AddNaturalVoices() {
  FoundVoices found = FindNaturalVoices(VoiceFolders());
  remarks_ = std::move(found.problems);
  if (found.voices.empty()) return;
  const auto runtime = OnnxRuntime::Find(RuntimeFolders());
  if (runtime.empty()) {
    remarks_.emplace_back(
        "Für die natürlichen Stimmen fehlt die ONNX Runtime. Die Hilfe sagt unter „Natürliche Stimmen“, wie "
        "man "
        "sie bekommt.");
    return;
  }
  Add(std::make_unique<NaturalSynthesizer>(library_, runtime, std::move(found.voices)));
}

void Synthesizers::AddCommandVoices() {
  FoundCommandVoices found = FindCommandVoices(VoiceFolders());
  remarks_.insert(remarks_.end(), found.problems.begin(), found.problems.end());
  if (!found.voices.empty())
    Add(std::make_unique<CommandSynthesizer>(std::move(found.voices), library_.SampleRate()));
}

Capabilities Synthesizers::Describe() const {
  Capabilities capabilities = EspeakSynthesizer::Ranges();
  for (const Part& part : parts_)
    capabilities.voices.insert(capabilities.voices.end(), part.voices.begin(), part.voices.end());
  return capabilities;
}

void Synthesizers::Select(std::int32_t voice) {
  auto index = static_cast<std::size_t>(voice - 1);
  for (std::size_t part = 0; voice >= 1 && part < parts_.size(); ++part) {
    if (index < parts_[part].voices.size()) {
      part_ = part;
      voice_ = index;
      return;
    }
    index -= parts_[part].voices.size();
  }
}

Synthesizer& Synthesizers::Choose(const Utterance& utterance) {
  Select(utterance.voice);
  Synthesizer& chosen = *parts_[part_].synthesizer;
  chosen.Apply(voice_, utterance);
  return chosen;
}

void Synthesizers::Prepare(std::int32_t voice) {
  Select(voice);
  parts_[part_].synthesizer->Prepare(voice_);
}

void Synthesizers::SetCancelled(bool cancelled) {
  for (const Part& part : parts_) part.synthesizer->SetCancelled(cancelled);
}

}  // namespace lorelin::engine
