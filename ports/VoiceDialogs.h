#pragma once

namespace lorelin {

enum class VoiceParameter { Volume, Speed, Pitch };

// Port: the dialogs that set the voice, modal. User-interface thread only. Throw RuntimeError when a stored
// value is no number.
class VoiceDialogs {
 public:
  virtual ~VoiceDialogs() = default;
  virtual void ChooseVoice() = 0;
  virtual void ChangeParameter(VoiceParameter parameter) = 0;
};

}  // namespace lorelin
