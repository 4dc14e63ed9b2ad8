#include <gtk/gtk.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

#include "platform/linux/SpawnLauncher.h"
#include "platform/linux/XcbForegroundWindow.h"
#include "tests/gui/FormFixture.h"

namespace lorelin {
namespace {

// A program of the test's that ends with it.
class OtherProgram {
 public:
  explicit OtherProgram(std::vector<std::string> arguments) : process_(fork()) {
    if (process_ != 0) return;
    std::vector<char*> pointers;
    for (std::string& argument : arguments) pointers.push_back(argument.data());
    pointers.push_back(nullptr);
    (void)!freopen("/dev/null", "w", stdout);
    execvp(pointers[0], pointers.data());
    _exit(127);
  }
  ~OtherProgram() {
    kill(process_, SIGCONT);
    kill(process_, SIGKILL);
    waitpid(process_, nullptr, 0);
  }
  OtherProgram(const OtherProgram&) = delete;
  OtherProgram& operator=(const OtherProgram&) = delete;
  void Stop() const { kill(process_, SIGSTOP); }

 private:
  pid_t process_;
};

class MonitorForm : public FormFixture {
 protected:
  // Every text that is spoken from now on.
  bool Hears(const std::string& wanted) {
    return WaitUntil([&] {
      const std::string spoken = voice.SpokenText();
      if (heard.empty() ? !spoken.empty() : spoken != heard.back()) heard.push_back(spoken);
      return !heard.empty() && heard.back() == " " + wanted + " ";
    });
  }
  std::unique_ptr<OtherProgram> Copy(const std::string& text) {
    WriteFile(folder.File("copied"), text);
    return std::make_unique<OtherProgram>(
        std::vector<std::string>{"xclip", "-quiet", "-selection", "clipboard", "-in", folder.File("copied")});
  }
  std::vector<std::string> heard;
};

TEST_F(MonitorForm, FetchesATextOnceForEachChange) {
  int fetched = 0;
  const GtkTargetEntry target{const_cast<gchar*>("UTF8_STRING"), 0, 0};
  const auto give = +[](GtkClipboard*, GtkSelectionData* data, guint, gpointer count) {
    ++*static_cast<int*>(count);
    gtk_selection_data_set_text(data, "groß", -1);
  };
  GtkClipboard* const owned = gtk_clipboard_get(GDK_SELECTION_CLIPBOARD);
  const auto copy = [&] {
    gtk_clipboard_set_with_data(
        owned, &target, 1, give, [](GtkClipboard*, gpointer) {}, &fetched);
    EXPECT_TRUE(WaitUntil([&] { return clipboard.Text() == "groß"; }));
  };
  copy();
  for (int i = 0; i < 10; ++i) pump.WaitForEvents();  // until the system has told of it
  EXPECT_EQ(clipboard.Text(), "groß");
  const int once = fetched;
  for (int i = 0; i < 5; ++i) EXPECT_EQ(clipboard.Text(), "groß");
  EXPECT_EQ(fetched, once);
  copy();
  EXPECT_TRUE(WaitUntil([&] { return clipboard.Text() == "groß" && fetched > once; }));
  gtk_clipboard_clear(owned);
}

TEST_F(MonitorForm, SpeaksWhatOtherProgramsCopy) {
  settings.Save(setting::SpellOut, "0");  // the texts as they are written
  settings.Save(setting::ReadClipboardOnChange, "1");
  window.Load();
  const auto first = Copy("Grüße aus\ndem Norden ♥");
  EXPECT_TRUE(Hears("Grüße aus\ndem Norden ♥"));
  const auto second = Copy("und aus dem Süden");
  EXPECT_TRUE(Hears("und aus dem Süden"));
  EXPECT_EQ(heard.size(), 2U);
}

TEST_F(MonitorForm, WaitsForAHungProgramOnlyOnceAndOneSecond) {
  const auto owner = Copy("x");
  ASSERT_TRUE(WaitUntil([this] { return clipboard.Text() == "x"; }));
  owner->Stop();
  auto begin = std::chrono::steady_clock::now();
  EXPECT_EQ(clipboard.Text(), "x");
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::milliseconds(1300));
  begin = std::chrono::steady_clock::now();
  EXPECT_EQ(clipboard.Text(), "x");
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::milliseconds(50));
}

TEST_F(MonitorForm, SpeaksTheTitlesOfWindowsThatComeToTheFront) {
  XcbForegroundWindow real(log);
  DesktopMonitor titles({.clipboard = clipboard, .foreground = real, .statusBar = form, .speech = speech});
  const OtherProgram anna({"xev", "-name", "Fenster für Anna"});
  ASSERT_TRUE(WaitUntil([&] { return real.Title() == "Fenster für Anna"; }));
  EXPECT_EQ(real.Obstacle(), "");
  titles.LookAtForeground();
  EXPECT_TRUE(Hears("Fenster für Anna"));
  const OtherProgram ben({"xev", "-name", "Bens Fenster"});
  ASSERT_TRUE(WaitUntil([&] { return real.Title() == "Bens Fenster"; }));
  titles.LookAtForeground();
  EXPECT_TRUE(Hears("Bens Fenster"));
  titles.LookAtForeground();
  EXPECT_EQ(heard.size(), 2U);
  EXPECT_EQ(Panel(1), "sd");
}

}  // namespace
}  // namespace lorelin
