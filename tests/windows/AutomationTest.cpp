#include <gtest/gtest.h>

#include "base/RuntimeError.h"
#include "platform/windows/AdvapiRegistry.h"
#include "platform/windows/ComAutomation.h"
#include "tests/support/FakePorts.h"
#include "tests/windows/ApartmentPump.h"
#include "tests/windows/extensionServers.h"
#include "tests/windows/speechServers.h"

namespace lorelin {
namespace {

class AutomationTest : public testing::Test {
 protected:
  AutomationTest() {
    Write("", "Lorelin Test");
    Write("\\CLSID", kExtensionClassText);
  }
  ~AutomationTest() override {
    registry.DeleteKey(RegistryHive::ClassesRoot, Key("\\CLSID"));
    registry.DeleteKey(RegistryHive::ClassesRoot, Key(""));
  }
  static std::string Key(const std::string& below) { return kExtensionName + below; }
  void Write(const std::string& below, const std::string& text) {
    registry.WriteValue(RegistryHive::ClassesRoot, Key(below), "", {RegistryType::String, text});
  }
  std::int32_t NumberOfFailure(std::string_view method, std::optional<std::string_view> argument) {
    try {
      (void)automation.CreateObject(kExtensionName)->Invoke(method, argument);
      return 0;
    } catch (const RuntimeError& error) {
      return error.Number();
    }
  }

  ApartmentPump pump;
  FakeLog log;
  AdvapiRegistry registry{log};
  OfferedClass offered{kExtensionClass, &MakeExtension};
  ComAutomation automation{log};
};

TEST_F(AutomationTest, PassesTextByReferenceAndTakesTheResult) {
  ExtensionCalls().clear();
  EXPECT_EQ(automation.CreateObject(kExtensionName)->Invoke("FilterText", "Grüße ♥"), "<Grüße ♥>");
  EXPECT_EQ(ExtensionCalls(), std::vector<std::string>{"FilterText(&Grüße ♥)"});
}

TEST_F(AutomationTest, TellsAMethodWithAndWithoutArgumentApart) {
  ExtensionCalls().clear();
  const auto object = automation.CreateObject(kExtensionName);
  EXPECT_EQ(object->Invoke("Startup", std::nullopt), std::nullopt);
  EXPECT_EQ(object->Invoke("Startup", "C:\\brief.txt"), std::nullopt);
  EXPECT_EQ(ExtensionCalls(), (std::vector<std::string>{"Startup()", "Startup(&C:\\brief.txt)"}));
}

TEST_F(AutomationTest, FindsMethodsWithoutCase) {
  EXPECT_EQ(automation.CreateObject(kExtensionName)->Invoke("filtertext", "a"), "<a>");
}

TEST_F(AutomationTest, TellsFailuresApart) {
  EXPECT_EQ(NumberOfFailure("GibtEsNicht", std::nullopt), 438);
  EXPECT_EQ(NumberOfFailure("Export", "fehler"), 440);
  EXPECT_FALSE(log.lines.empty());
}

TEST_F(AutomationTest, CannotCreateWhatNobodyOffers) {
  for (const auto* const name : {"Gibt.Es.Nicht", "", "org.lorelin"}) {
    try {
      (void)automation.CreateObject(name);
      ADD_FAILURE() << name;
    } catch (const RuntimeError& error) {
      EXPECT_EQ(error.Number(), 429) << name;
    }
  }
}

TEST_F(AutomationTest, ReleasesItsObjects) {
  const long before = ServedObject::LiveObjects();
  (void)automation.CreateObject(kExtensionName)->Invoke("FilterText", "a");
  EXPECT_EQ(ServedObject::LiveObjects(), before);
}

}  // namespace
}  // namespace lorelin
