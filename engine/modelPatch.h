#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace lorelin::engine {

// A model that is ready to be run: what the program needs besides the sound was added to it.
struct PatchedModel {
  std::string bytes;
  // The output that tells how long each symbol lasts, in frames, before the model rounds them up; "" when it
  // has none.
  std::string durations;
  bool hasSpeakers = false;  // it takes the input "sid"
};

// Reads a model (ONNX: a protobuf message) far enough to know that it has a voice's inputs and output, makes
// an output of the symbols' durations, and gives every source of noise the same noise each time, so that a
// text always sounds the same. Else `problem` is the end of a German sentence. Nothing is taken for granted:
// not a size that the bytes tell, not that they are a model at all.
[[nodiscard]] std::optional<PatchedModel> PatchModel(std::string_view model, std::string& problem);

}  // namespace lorelin::engine
