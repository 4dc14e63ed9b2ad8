#include "extensions/registrations.h"

#include <gtest/gtest.h>

#include "tests/support/FakePorts.h"
#include "tests/support/FakeRegistry.h"

namespace lorelin {
namespace {

class RegistrationsTest : public testing::Test {
 protected:
  FakeRegistry registry;
  FakeFileWriter files;
  ClsRegistryAccess access{registry, files};
  Registrations registrations{access};
};

TEST_F(RegistrationsTest, AreEmptyAtFirst) {
  EXPECT_TRUE(registrations.List().empty());
}

TEST_F(RegistrationsTest, AreAddedSwitchedAndRemoved) {
  EXPECT_EQ(registrations.Add(" Protokoll ", " org.lorelin.example.Protokoll "), "");
  ASSERT_EQ(registrations.List().size(), 1U);
  EXPECT_EQ(registrations.List()[0].name, "Protokoll");
  EXPECT_EQ(registrations.List()[0].objectName, "org.lorelin.example.Protokoll");
  EXPECT_TRUE(registrations.List()[0].IsCalled());
  EXPECT_TRUE(registrations.SetActive("Protokoll", false));
  EXPECT_EQ(registrations.List()[0].active, "false");
  EXPECT_TRUE(registrations.Remove("Protokoll"));
  EXPECT_TRUE(registrations.List().empty());
}

TEST_F(RegistrationsTest, SayWhatTheyDoNotTake) {
  EXPECT_EQ(registrations.Add("", "x"), "Bitte geben Sie der Erweiterung einen Namen.");
  EXPECT_EQ(registrations.Add("a\\b", "x"), "Der Name darf keinen umgekehrten Schrägstrich enthalten.");
  EXPECT_EQ(registrations.Add("a", " "), "Bitte geben Sie den Objektnamen der Erweiterung an.");
  EXPECT_EQ(registrations.Add("a", "x"), "");
  EXPECT_EQ(registrations.Add("a", "y"), "Eine Erweiterung „a“ gibt es schon.");
}

TEST_F(RegistrationsTest, AreCalledWhenAnyHookTakesThemForActive) {
  for (const auto* const active : {"true", "True", " true", "untrue"}) {
    EXPECT_TRUE((Registration{"a", "x", active}).IsCalled()) << active;
  }
  for (const auto* const active : {"", "false", "1", "unTrue"}) {
    EXPECT_FALSE((Registration{"a", "x", active}).IsCalled()) << active;
  }
}

}  // namespace
}  // namespace lorelin
