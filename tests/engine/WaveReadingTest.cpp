#include "engine/waveReading.h"

#include <gtest/gtest.h>

#include <bit>
#include <cstdint>
#include <string>

#include "engine/waveHeader.h"

namespace lorelin::engine {
namespace {

std::string Bytes(std::uint64_t number, int size) {
  std::string bytes;
  for (int i = 0; i < size; ++i) bytes.push_back(static_cast<char>(number >> (8 * i)));
  return bytes;
}

std::string Chunk(const std::string& name, const std::string& data, std::uint32_t told) {
  return name + Bytes(told, 4) + data;
}

std::string Chunk(const std::string& name, const std::string& data) {
  return Chunk(name, data, static_cast<std::uint32_t>(data.size())) + std::string(data.size() % 2, '\0');
}

std::string Form(int kind, int channels, int rate, int bits) {
  const int frame = channels * bits / 8;
  return Bytes(static_cast<std::uint64_t>(kind), 2) + Bytes(static_cast<std::uint64_t>(channels), 2) +
         Bytes(static_cast<std::uint64_t>(rate), 4) + Bytes(static_cast<std::uint64_t>(rate * frame), 4) +
         Bytes(static_cast<std::uint64_t>(frame), 2) + Bytes(static_cast<std::uint64_t>(bits), 2);
}

std::string Wave(const std::string& chunks) {
  return "RIFF" + Bytes(4 + chunks.size(), 4) + "WAVE" + chunks;
}

using Samples = std::vector<float>;

TEST(WaveReading, ReadsWhatTheProgramWrites) {
  const auto sound = ReadWave(WaveHeader(22050, 4) + Bytes(0x4000, 2) + Bytes(0xC000, 2));
  ASSERT_TRUE(sound);
  EXPECT_EQ(sound->sampleRate, 22050);
  EXPECT_EQ(sound->samples, (Samples{0.5F, -0.5F}));
}

TEST(WaveReading, ReadsEveryWidth) {
  const auto read = [](int kind, int bits, const std::string& data) {
    const auto sound = ReadWave(Wave(Chunk("fmt ", Form(kind, 1, 16000, bits)) + Chunk("data", data)));
    return sound ? sound->samples : Samples();
  };
  EXPECT_EQ(read(1, 8, {'\x80', '\xC0', '\x40'}), (Samples{0, 0.5F, -0.5F}));
  EXPECT_EQ(read(1, 24, Bytes(0x400000, 3) + Bytes(0xC00000, 3)), (Samples{0.5F, -0.5F}));
  EXPECT_EQ(read(1, 32, Bytes(0x40000000, 4) + Bytes(0xC0000000, 4)), (Samples{0.5F, -0.5F}));
  EXPECT_EQ(
      read(3, 32, Bytes(std::bit_cast<std::uint32_t>(0.5F), 4) + Bytes(0x7FC00000, 4) + Bytes(0x7F000000, 4)),
      (Samples{0.5F, 0, 1}));
}

TEST(WaveReading, MixesTheChannels) {
  const auto sound = ReadWave(Wave(Chunk("fmt ", Form(1, 2, 48000, 16)) +
                                   Chunk("data", Bytes(0x4000, 2) + Bytes(0, 2) + Bytes(0x4000, 2))));
  ASSERT_TRUE(sound);
  EXPECT_EQ(sound->samples, (Samples{0.25F}));  // and half a frame, which is nothing
}

TEST(WaveReading, PassesOverOtherChunks) {
  const std::string extensible = Form(0xFFFE, 1, 8000, 16) + Bytes(22, 2) + Bytes(16, 2) + Bytes(4, 4) +
                                 Bytes(1, 2) + std::string(14, '\x10');
  const auto sound = ReadWave(Wave(Chunk("LIST", "odd") + Chunk("fmt ", extensible) +
                                   Chunk("data", Bytes(0x4000, 2)) + Chunk("id3 ", "x")));
  ASSERT_TRUE(sound);
  EXPECT_EQ(sound->samples, (Samples{0.5F}));
}

TEST(WaveReading, TakesTheRestWhereTheSizeIsNotKnown) {
  for (const std::uint32_t told : {0U, 0x7FFFF000U, 0xFFFFFFFFU, 1000U}) {
    const auto sound = ReadWave(
        Wave(Chunk("fmt ", Form(1, 1, 8000, 16)) + Chunk("data", Bytes(0x4000, 2) + Bytes(0x4000, 2), told)));
    ASSERT_TRUE(sound) << told;
    EXPECT_EQ(sound->samples.size(), 2U) << told;
  }
}

TEST(WaveReading, RefusesWhatIsNone) {
  const std::string data = Chunk("data", "abcd");
  for (const std::string& bytes :
       {std::string(), std::string("RIFF"), "RIFX" + Wave(data).substr(4), std::string("RIFF1234AVI "),
        Wave(""), Wave(data), Wave(Chunk("fmt ", Form(1, 1, 8000, 16))), Wave(Chunk("fmt ", "kurz") + data),
        Wave(Chunk("fmt ", Form(1, 0, 8000, 16)) + data), Wave(Chunk("fmt ", Form(1, 9, 8000, 16)) + data),
        Wave(Chunk("fmt ", Form(1, 1, 3999, 16)) + data), Wave(Chunk("fmt ", Form(1, 1, 96001, 16)) + data),
        Wave(Chunk("fmt ", Form(1, 1, 8000, 12)) + data), Wave(Chunk("fmt ", Form(3, 1, 8000, 64)) + data),
        Wave(Chunk("fmt ", Form(85, 1, 8000, 16)) + data), std::string(500, '\xFF')})
    EXPECT_FALSE(ReadWave(bytes)) << bytes.size();
}

TEST(WaveReading, HasNoSamplesWhereThereAreNone) {
  const auto sound = ReadWave(WaveHeader(22050, 0));
  ASSERT_TRUE(sound);
  EXPECT_TRUE(sound->samples.empty());
}

TEST(WaveReading, KnowsTheSizeFromTheBeginning) {
  const std::string bytes = WaveHeader(22050, 100);
  EXPECT_EQ(ToldWaveSize(std::string_view(bytes).substr(0, kWaveBeginning)), 144U);
  EXPECT_FALSE(ToldWaveSize("Guten Morgen"));
}

}  // namespace
}  // namespace lorelin::engine
