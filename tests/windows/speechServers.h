#pragma once

#include <guiddef.h>

#include <set>
#include <string>
#include <vector>

#include "platform/windows/servedObject.h"

namespace lorelin {

// Speech engines that make tones: every character is 20 ms of sound, of which a thousandth passes in real
// time. They stand for the Direct Speech Synthesis control and for SAPI 5 by those classes' own identifiers.
struct SpeechServers {
  std::vector<std::string> calls;  // "6(Guten Tag)", "69=2", "Speak(…, 9)", in their order
  std::set<std::string> failing;   // members that fail from now on: "6", "Speak"
  std::vector<std::string> languages{"407", "407", "409"};  // of SAPI's voices
  bool quietAboutTheEnd = false;                            // no event tells the end of a text

  // Those of this process.
  static SpeechServers& Here();
  [[nodiscard]] std::size_t Count(const std::string& call) const;
};

extern const CLSID kDirectSSClass;
extern const CLSID kSpVoiceClass;
extern const CLSID kSpFileStreamClass;

[[nodiscard]] ServedObject* MakeDirectSS();
[[nodiscard]] ServedObject* MakeSpVoice();
[[nodiscard]] ServedObject* MakeSpFileStream();

// Makes a class creatable in this process as long as it lives.
class OfferedClass {
 public:
  OfferedClass(const CLSID& id, ServedObject* (*make)());
  ~OfferedClass();
  OfferedClass(const OfferedClass&) = delete;
  OfferedClass& operator=(const OfferedClass&) = delete;

 private:
  DWORD registration_ = 0;
};

}  // namespace lorelin
