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
  void CallEveryHook() {
    extensions.Startup();
    extensions.Close();
    extensions.NewFile();
    extensions.OpenFile("/o");
    extensions.SaveFile("/s");
    extensions.Export("/e");
    extensions.TaskScript("t.vts");
    (void)extensions.FilterText("x");
  }
  // Of which words `called` holds: "all" (but the two that follow), "export", "filter".
  static std::vector<std::string> ExpectedCalls(const std::string& called) {
    const auto has = [&](const char* word) { return called.find(word) != std::string::npos; };
    std::vector<std::string> calls;
    if (has("all")) {
      calls = {"A.Startup()", "A.Close()", "A.NewFile()", "A.Startup(/o)", "A.SaveFile(/s)"};
    }
    if (has("export")) calls.emplace_back("A.Export(/e)");
    if (has("all")) calls.emplace_back("A.TaskScript(t.vts)");
    if (has("filter")) calls.emplace_back("A.FilterText(x)");
    return calls;
  }
  // An object that never answers; its caller has to give it up.
  void AddHanging(const std::string& name) {
    Register(name, "true");
    automation.objects[name] = [this](const std::string&, auto) -> std::string {
      while (automation.turn()) clock.steady += std::chrono::milliseconds(10);
      throw RuntimeError(ErrorNumber::AutomationFailed);
    };
  }
  void Watch() {
    extensions.WhileWaiting({.clock = clock,
                             .tell = [this](const std::string& text) { told.push_back(text); },
                             .turn = [this] { return !escape || clock.steady < *escape; }});
  }
  // How long the hook kept its caller waiting.
  std::chrono::milliseconds TimeOf(const std::function<void()>& hook) {
    const auto before = clock.steady;
    hook();
    return std::chrono::duration_cast<std::chrono::milliseconds>(clock.steady - before);
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
  FakeClock clock;
  std::vector<std::string> seen;
  std::vector<std::string> told;
  std::optional<std::chrono::steady_clock::time_point> escape;  // when the user presses it
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

TEST_F(Addin, IsCalledByTheHooksWhoseTestItsSwitchPasses) {
  struct Case {
    std::string active;
    std::string called;
  };
  for (const Case& one : {Case{"true", "all export filter"}, Case{"True", "filter"},
                          Case{" true ", "export filter"}, Case{"untrue", "export"}, Case{"TRUE", "filter"},
                          Case{"truely", "export filter"}, Case{"1", ""}, Case{"false", ""}, Case{"", ""}}) {
    Add("A", one.active);
    seen.clear();
    CallEveryHook();
    EXPECT_EQ(seen, ExpectedCalls(one.called)) << "„" << one.active << "“";
  }
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

TEST_F(Addin, TakesAnAnswerThatIsNoTextForAFailure) {
  Add("A");
  Register("B", "true");
  automation.objects["B"] = [](const auto&, auto) -> std::optional<std::string> { return std::nullopt; };
  EXPECT_EQ(extensions.FilterText("x"), "[Ax]");
  ASSERT_EQ(log.lines.size(), 1U);
  EXPECT_NE(log.lines[0].find("kein Text"), std::string::npos) << log.lines[0];
  extensions.SaveFile("/s");
  EXPECT_EQ(log.lines.size(), 1U);
}

TEST_F(Addin, LetsAFilterAnswerAnEmptyText) {
  Register("A", "true");
  automation.objects["A"] = [](const auto&, auto) { return ""; };
  EXPECT_EQ(extensions.FilterText("x"), "");
  EXPECT_TRUE(log.lines.empty());
}

TEST_F(Addin, IsNamedWhileItKeepsOneWaiting) {
  Watch();
  AddHanging("Langsam");
  (void)extensions.FilterText("x");
  EXPECT_EQ(told, (std::vector<std::string>{"Wartet auf die Erweiterung „Langsam“ … (Esc bricht ab)",
                                            "Die Erweiterung „Langsam“ antwortet nicht."}));
}

TEST_F(Addin, ThatAnswersAtOnceIsNotWorthAWord) {
  Watch();
  Add("A");
  (void)extensions.FilterText("x");
  EXPECT_TRUE(told.empty());
}

TEST_F(Addin, IsGivenUpWithEscape) {
  Watch();
  AddHanging("A");
  escape = clock.steady + std::chrono::seconds(1);
  EXPECT_EQ(extensions.FilterText("x"), std::nullopt);
  EXPECT_EQ(told.back(), "");
  escape.reset();
  EXPECT_EQ(extensions.FilterText("x"), "x");
}

TEST_F(Addin, IsNotWaitedForLongAtTheStartAndAtTheEnd) {
  using std::chrono::milliseconds;
  Watch();
  AddHanging("A");
  EXPECT_LE(TimeOf([this] { extensions.Startup(); }), milliseconds(2000));
  EXPECT_LE(TimeOf([this] { extensions.OpenFile("/o"); }), milliseconds(200));
  EXPECT_LE(TimeOf([this] { extensions.Close(); }), milliseconds(200));
  Add("A");
  extensions.OpenFile("/o");
  AddHanging("A");
  EXPECT_GT(TimeOf([this] { extensions.Close(); }), milliseconds(1900));
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
