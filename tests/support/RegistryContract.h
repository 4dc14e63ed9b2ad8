#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "ports/Registry.h"

namespace lorelin {

// What every registry does. The parameter makes an empty one.
class RegistryContract : public testing::TestWithParam<std::unique_ptr<Registry> (*)()> {
 protected:
  static constexpr auto kHive = RegistryHive::CurrentUser;
  std::unique_ptr<Registry> registry = GetParam()();

  void Write(std::string_view path, std::string_view name, std::string_view text) {
    EXPECT_TRUE(registry->WriteValue(kHive, path, name, {RegistryType::String, std::string(text)}));
  }
  std::string Read(std::string_view path, std::string_view name) {
    const auto value = registry->ReadValue(kHive, path, name);
    return value ? value->data : "(fehlt)";
  }
};

using Names = std::vector<std::string>;

TEST_P(RegistryContract, KeepsValuesOfEveryType) {
  const RegistryValue binary{RegistryType::Binary, std::string("\x00\x41\xFF", 3)};
  EXPECT_TRUE(registry->WriteValue(kHive, "A\\B", "bin", binary));
  EXPECT_TRUE(registry->WriteValue(kHive, "A\\B", "zahl", MakeDoubleWord(0xDEADBEEF)));
  Write("A\\B", "text", "Grüße");
  EXPECT_EQ(registry->ReadValue(kHive, "A\\B", "bin"), binary);
  EXPECT_EQ(DoubleWordOf(*registry->ReadValue(kHive, "A\\B", "zahl")), 0xDEADBEEF);
  EXPECT_EQ(Read("A\\B", "text"), "Grüße");
}

TEST_P(RegistryContract, ComparesNamesWithoutCase) {
  Write("Software\\Übung", "Größe", "1");
  EXPECT_EQ(Read("SOFTWARE\\übung", "GRÖßE"), "1");
  Write("software\\ÜBUNG", "größe", "2");
  EXPECT_EQ(Read("Software\\Übung", "Größe"), "2");
  EXPECT_EQ(registry->ValueNames(kHive, "software\\übung"), Names{"Größe"});
}

TEST_P(RegistryContract, ComparesGreekAndCyrillicNamesWithoutCase) {
  Write("ΑΒΓ", "ПРИВЕТ", "1");
  EXPECT_EQ(Read("αβγ", "привет"), "1");
}

TEST_P(RegistryContract, TellsLettersApartThatOnlyLookAlikeInCapitals) {
  Write("K", "Straße", "1");
  EXPECT_EQ(Read("K", "STRASSE"), "(fehlt)");
}

TEST_P(RegistryContract, KeepsTheSpellingOfTheFirstWriter) {
  Write("Erste\\Unter", "x", "1");
  Write("ERSTE\\unter", "y", "2");
  EXPECT_EQ(registry->SubkeyNames(kHive, "erste"), Names{"Unter"});
}

TEST_P(RegistryContract, CreatesMissingParents) {
  EXPECT_TRUE(registry->CreateKey(kHive, "a\\b\\c"));
  EXPECT_TRUE(registry->KeyExists(kHive, "a"));
  EXPECT_TRUE(registry->KeyExists(kHive, "A\\B"));
  EXPECT_FALSE(registry->KeyExists(kHive, "a\\c"));
  EXPECT_TRUE(registry->CreateKey(kHive, "a\\b\\c"));
}

TEST_P(RegistryContract, TakesSuperfluousSeparatorsForNone) {
  Write("\\a\\\\b\\", "x", "1");
  EXPECT_EQ(Read("a\\b", "x"), "1");
  EXPECT_EQ(registry->SubkeyNames(kHive, "a"), Names{"b"});
}

TEST_P(RegistryContract, DeletesAKeyWhoseNameHasSuperfluousSeparators) {
  Write("a\\b", "x", "1");
  EXPECT_TRUE(registry->DeleteKey(kHive, "\\a\\\\b\\\\"));
  EXPECT_FALSE(registry->KeyExists(kHive, "a\\b"));
  EXPECT_FALSE(registry->DeleteKey(kHive, "\\"));
}

TEST_P(RegistryContract, SeparatesTheHives) {
  Write("K", "x", "1");
  EXPECT_FALSE(registry->KeyExists(RegistryHive::LocalMachine, "K"));
}

TEST_P(RegistryContract, HasValuesWithoutName) {
  Write(".vts", "", "vtsfile");
  EXPECT_EQ(Read(".vts", ""), "vtsfile");
}

TEST_P(RegistryContract, EnumeratesSubkeysAndValuesInOneOrder) {
  Write("K", "a", "1");
  Write("K", "b", "2");
  Write("K\\Eins", "", "");
  Write("K\\Zwei", "", "");
  EXPECT_EQ(registry->ValueNames(kHive, "K"), (Names{"a", "b"}));
  EXPECT_EQ(registry->SubkeyNames(kHive, "K"), (Names{"Eins", "Zwei"}));
  EXPECT_EQ(registry->SubkeyNames(kHive, "fehlt"), std::nullopt);
  EXPECT_EQ(registry->ValueNames(kHive, "fehlt"), std::nullopt);
}

TEST_P(RegistryContract, ReplacesAValueWithItsType) {
  Write("K", "x", "1");
  EXPECT_TRUE(registry->WriteValue(kHive, "K", "X", MakeDoubleWord(2)));
  EXPECT_EQ(registry->ReadValue(kHive, "K", "x"), MakeDoubleWord(2));
}

TEST_P(RegistryContract, DeletesValues) {
  Write("K", "x", "1");
  EXPECT_TRUE(registry->DeleteValue(kHive, "k", "X"));
  EXPECT_EQ(Read("K", "x"), "(fehlt)");
  EXPECT_FALSE(registry->DeleteValue(kHive, "K", "x"));
}

TEST_P(RegistryContract, DeletesKeysWithoutSubkeysOnly) {
  Write("K\\Unter", "x", "1");
  EXPECT_FALSE(registry->DeleteKey(kHive, "K"));
  EXPECT_TRUE(registry->DeleteKey(kHive, "k\\unter"));
  EXPECT_FALSE(registry->KeyExists(kHive, "K\\Unter"));
  EXPECT_EQ(Read("K\\Unter", "x"), "(fehlt)");
  EXPECT_TRUE(registry->DeleteKey(kHive, "K"));
  EXPECT_FALSE(registry->DeleteKey(kHive, "K"));
}

TEST_P(RegistryContract, KeepsLongAndEmptyTexts) {
  const std::string longText(1 << 20, 'x');
  Write("K", "lang", longText);
  Write("K", "leer", "");
  EXPECT_EQ(Read("K", "lang"), longText);
  EXPECT_EQ(Read("K", "leer"), "");
}

}  // namespace lorelin
