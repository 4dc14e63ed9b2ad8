#pragma once

#include <cstdint>
#include <string_view>

namespace lorelin::engine {

// 1 for a man, 2 for a woman, by the name of the recordings that a natural voice was made of
// ("thorsten_emotional"); 0 for several people and where it is not known.
[[nodiscard]] std::int32_t GenderOfSpeaker(std::string_view recordings);

}  // namespace lorelin::engine
