#include "extensions/modAddin.h"

#include <gtest/gtest.h>

#include "base/RuntimeError.h"
#include "tests/support/FakePorts.h"
#include "tests/support/FakeRegistry.h"

namespace lorelin {
namespace {

class Addin : public testing::Test {
 protected:
  void Register(const std::string& name, const std::string& active) {
    const std::string key = "Software\\VB and VBA Program Settings\\Lorelin\\Extensions\\" + name;
    registry.WriteValue(RegistryHive::CurrentUser, key, "Active", {RegistryType::String, active});
    registry.WriteValue(RegistryHive::CurrentUser, key, "ObjectName", {RegistryType::String, name});
  }
  void Provide(const std::string& name) {
    automation.objects[name] = [this, name](const std::string& method, auto argument) {
      seen.push_back(name + "." + method + (argument ? "(" + *argument + ")" : "()"));
      return "[" + name + argument.value_or("") + "]";
    };
  }
  void Add(const std::string& name, const std::string& active = "true") {
    Register(name, active);
    Provide(name);
  }

  FakeRegistry registry;
  FakeAutomation automation;
  FakeLog log;
  FakeFileWriter files;
  ModAddin extensions{registry, files, automation, log};
  std::vector<std::string> seen;
};

TEST_F(Addin, CallsTheMethodsOfEveryHook) {
  Add("A");
  extensions.Startup();
  extensions.Close();
  extensions.NewFile();
  extensions.OpenFile("/o");
  extensions.SaveFile("/s");
  extensions.Export("/e");
  extensions.TaskScript("t.vts");
  EXPECT_EQ(seen, (std::vector<std::string>{"A.Startup()", "A.Close()", "A.NewFile()", "A.Startup(/o)",
                                            "A.SaveFile(/s)", "A.Export(/e)", "A.TaskScript(t.vts)"}));
}

TEST_F(Addin, WithoutRegistrationsDoesNothingAndKeepsTheText) {
  extensions.Startup();
  EXPECT_EQ(extensions.FilterText("Text"), "Text");
}

TEST_F(Addin, WithACapitalIsActiveForExportAndFilterOnly) {
  Add("A", "true");
  Add("B", "True");
  extensions.Close();
  extensions.Export("/e");
  EXPECT_EQ(extensions.FilterText("x"), "[B[Ax]]");
  EXPECT_EQ(seen,
            (std::vector<std::string>{"A.Close()", "A.Export(/e)", "A.FilterText(x)", "B.FilterText([Ax])"}));
}

TEST_F(Addin, WithBlanksAroundIsActiveForTheFilterOnly) {
  Add("A", "  true ");
  extensions.Close();
  EXPECT_TRUE(seen.empty());
  EXPECT_EQ(extensions.FilterText("x"), "[Ax]");
}

TEST_F(Addin, WithTrueBehindOtherLettersIsActiveForTheExportOnly) {
  Add("A", "untrue");
  extensions.Close();
  EXPECT_EQ(extensions.FilterText("x"), "x");
  extensions.Export("/e");
  EXPECT_EQ(seen, std::vector<std::string>{"A.Export(/e)"});
}

TEST_F(Addin, GivesTheSecondFilterTheOutputOfTheFirst) {
  Add("A");
  Add("B");
  EXPECT_EQ(extensions.FilterText("x"), "[B[Ax]]");
}

TEST_F(Addin, EndsTheFilteringAtAFailureAndKeepsTheTextSoFar) {
  Add("A");
  Register("B", "true");
  automation.objects["B"] = [](const auto&, auto) -> std::string {
    throw RuntimeError(ErrorNumber::NoSuchMethod);
  };
  Add("C");
  EXPECT_EQ(extensions.FilterText("x"), "[Ax]");
  EXPECT_EQ(log.lines.size(), 1U);
}

TEST_F(Addin, EndsAHookAtAnObjectThatCannotBeCreated) {
  Register("A", "true");
  Add("B");
  extensions.Close();
  EXPECT_TRUE(seen.empty());
  EXPECT_EQ(log.lines.size(), 1U);
}

TEST_F(Addin, CallsTheObjectBeforeAgainWhenAnExportObjectCannotBeCreated) {
  Register("A", "true");
  Add("B");
  Register("C", "true");
  Add("D");
  extensions.Export("/e");
  EXPECT_EQ(seen, (std::vector<std::string>{"B.Export(/e)", "B.Export(/e)", "D.Export(/e)"}));
}

}  // namespace
}  // namespace lorelin
