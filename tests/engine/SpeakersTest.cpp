#include "engine/speakers.h"

#include <gtest/gtest.h>

namespace lorelin::engine {
namespace {

TEST(Speakers, AreKnownByTheirRecordings) {
  for (const char* const man : {"thorsten", "thorsten_emotional", "karlsson", "pavoque"}) {
    EXPECT_EQ(GenderOfSpeaker(man), 1) << man;
  }
  for (const char* const woman : {"eva_k", "kerstin", "ramona", "jenny_dioco"}) {
    EXPECT_EQ(GenderOfSpeaker(woman), 2) << woman;
  }
  for (const char* const unknown : {"mls", "", "johnson", "eva", "probe"}) {
    EXPECT_EQ(GenderOfSpeaker(unknown), 0) << unknown;
  }
}

}  // namespace
}  // namespace lorelin::engine
