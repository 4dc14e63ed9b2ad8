#include <wx/timer.h>

#include <array>
#include <filesystem>
#include <functional>
#include <string>

#include "desktop/toolkit/WxMessageBoxes.h"
#include "tests/gui/FormFixture.h"
#include "tests/gui/gtkOpenBox.h"

namespace lorelin {
namespace {

// What a window leaves behind, removed by its menu; the question is put by the real box.
class PrivateThings : public FormFixture, public testing::WithParamInterface<const char*> {
 protected:
  void SetUp() override {
    for (const auto* const name : kPrivate) Make(name);
    for (const auto* const name : kKept) Make(name);
    recoveryFiles.names = {"2026-11-21 05-10-00.rtf"};
    recent.Add(folder.File("brief.txt"));
    modules.readingPlaces.Keep(folder.File("brief.txt"), "Lieber Leser", 7);
    modules.readingPlaces.FinishWriting();
    window.Load();
    Make("temp/4711.wav");  // the start clears the folder
    fileSearch.names = {"4711.wav"};
    Choose("Ansicht", GetParam());
    form.Editor().SetText("Der offene Text");
    messageBoxes.boxes.clear();
    boxes.SetParent(&form);
  }

  void Make(const std::string& name) {
    const std::filesystem::path path(folder.File(name));
    std::filesystem::create_directories(path.parent_path());
    WriteFile(path.string(), "geheim");
  }
  bool Exists(const std::string& name) { return std::filesystem::exists(folder.File(name)); }

  // Chooses the entry and acts on the box.
  void Clear(const std::function<void(GtkDialog*)>& act) {
    messageBoxes.onShow = [&] {
      const FakeMessageBoxes::Box box = messageBoxes.boxes.back();
      wxTimer timer;
      timer.Bind(wxEVT_TIMER, [&](wxTimerEvent&) {
        GtkDialog* const shown = OpenBox();
        if (shown == nullptr) return;
        timer.Stop();
        act(shown);
      });
      timer.Start(10);
      messageBoxes.answers.push_back(boxes.Show(box.text, box.title, box.icon, box.buttons));
    };
    Choose("Datei", "Privates löschen …");
    messageBoxes.onShow = {};
  }
  static void PressEnter(GtkDialog* box) { gtk_window_activate_default(GTK_WINDOW(box)); }
  static void PressYes(GtkDialog* box) { gtk_dialog_response(box, GTK_RESPONSE_YES); }

  bool PlaceIsKept() {
    return modules.readingPlaces.Find(folder.File("brief.txt"), "Lieber Leser").has_value();
  }

  static constexpr std::array kPrivate{"lorelin.log",
                                       "lorelin.log.1",
                                       "taskscripts.log",
                                       "taskscripts.log.1",
                                       "hypertext/err2.html",
                                       "cache/WebKitCache/seite",
                                       "cache/CacheStorage/seite",
                                       "temp/4711.wav",
                                       "recovery/2026-11-21 05-10-00.rtf"};
  static constexpr std::array kKept{"brief.txt", "scripts/probe.vts", "voices/stimme.onnx"};
  WxMessageBoxes boxes;
};

TEST_P(PrivateThings, AreNotTouchedWhenTheQuestionIsAnsweredByEnter) {
  Clear(&PressEnter);
  ASSERT_EQ(messageBoxes.boxes.size(), 1U);
  EXPECT_NE(messageBoxes.boxes[0].text.find("(1 Eintrag)"), std::string::npos);
  EXPECT_NE(messageBoxes.boxes[0].text.find("(1 Text)"), std::string::npos);
  for (const auto* const name : kPrivate) EXPECT_TRUE(Exists(name)) << name;
  EXPECT_EQ(recent.Paths().size(), 1U);
  EXPECT_EQ(recovery.Leftovers().size(), 1U);
  EXPECT_TRUE(PlaceIsKept());
}

TEST_P(PrivateThings, GoWhenTheUserSaysYes) {
  Clear(&PressYes);
  EXPECT_EQ(messageBoxes.boxes.size(), 1U) << "nothing could not be removed";
  for (const auto* const name : kPrivate) EXPECT_FALSE(Exists(name)) << name;
  EXPECT_TRUE(recent.Paths().empty());
  EXPECT_TRUE(recovery.Leftovers().empty());
  EXPECT_FALSE(PlaceIsKept());
  EXPECT_EQ(Panel(1), "Privates ist gelöscht.");
}

TEST_P(PrivateThings, AreNeitherTheOpenTextNorWhatTheUserMade) {
  Clear(&PressYes);
  EXPECT_EQ(form.Editor().Text(), "Der offene Text");
  EXPECT_TRUE(documents.Modified());
  for (const auto* const name : kKept) EXPECT_TRUE(Exists(name)) << name;
}

INSTANTIATE_TEST_SUITE_P(InBothModes, PrivateThings, testing::Values("Interaktivmodus", "Textmodus"));

}  // namespace
}  // namespace lorelin
