// What a person sees of a program that opens a text, measured from outside: when its window is there, when
// the text is painted, how long a key takes until it is seen, and what it costs. Needs a screen with a window
// manager.
//   asSeen [--start] TITLE PROGRAM ARGUMENT...
// With --start only when there is a window and when something is painted in it.
// The window is the one whose title contains TITLE; the text has to begin at the top of it.
#include <X11/Xlib.h>
// the other needs it before
#include <X11/Xutil.h>
#include <X11/extensions/XTest.h>
#include <X11/keysym.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <iostream>
#include <optional>
#include <sstream>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

namespace {

using Moment = std::chrono::steady_clock::time_point;
using Pixels = std::vector<unsigned>;

constexpr double kLongest = 60000;  // milliseconds

Moment Now() {
  return std::chrono::steady_clock::now();
}
double Since(Moment begin) {
  return std::chrono::duration<double, std::milli>(Now() - begin).count();
}
bool Until(const std::function<bool()>& done) {
  for (const Moment begin = Now(); Since(begin) < kLongest;) {
    if (done()) return true;
    std::this_thread::sleep_for(std::chrono::milliseconds(3));
  }
  return false;
}

class ScreenView {
 public:
  ScreenView() : display_(XOpenDisplay(nullptr)) {
    // Windows may go while one looks at them.
    XSetErrorHandler([](Display*, XErrorEvent*) { return 0; });
  }
  ~ScreenView() { XCloseDisplay(display_); }
  ScreenView(const ScreenView&) = delete;
  ScreenView& operator=(const ScreenView&) = delete;

  [[nodiscard]] std::optional<Window> Find(const std::string& title) const {
    return Find(DefaultRootWindow(display_), title);
  }

  // The middle of the window from `top` percent of its height on.
  [[nodiscard]] Pixels Look(Window window, int top) const {
    XWindowAttributes place;
    if (XGetWindowAttributes(display_, window, &place) == 0) return {};
    const int left = place.width * 3 / 10;
    const auto width = static_cast<unsigned>(place.width / 2);
    const auto height = static_cast<unsigned>(place.height * 2 / 5);
    XImage* const image =
        XGetImage(display_, window, left, place.height * top / 100, width, height, AllPlanes, ZPixmap);
    if (image == nullptr) return {};
    Pixels pixels;
    for (unsigned y = 0; y < height; ++y) {
      for (unsigned x = 0; x < width; ++x) {
        pixels.push_back(static_cast<unsigned>(XGetPixel(image, static_cast<int>(x), static_cast<int>(y))));
      }
    }
    XDestroyImage(image);
    return pixels;
  }

  void PressKey(KeySym key) const {
    const KeyCode code = XKeysymToKeycode(display_, key);
    XTestFakeKeyEvent(display_, code, True, 0);
    XTestFakeKeyEvent(display_, code, False, 0);
    XFlush(display_);
  }

 private:
  [[nodiscard]] std::string TitleOf(Window window) const {
    Atom type = None;
    int format = 0;
    unsigned long count = 0;
    unsigned long rest = 0;
    unsigned char* bytes = nullptr;
    XGetWindowProperty(display_, window, XInternAtom(display_, "_NET_WM_NAME", False), 0, 1000, False,
                       AnyPropertyType, &type, &format, &count, &rest, &bytes);
    if (bytes == nullptr) return {};
    std::string title(reinterpret_cast<char*>(bytes), count);
    XFree(bytes);
    return title;
  }

  [[nodiscard]] std::optional<Window> Find(Window window, const std::string& title) const {
    XWindowAttributes state;
    if (XGetWindowAttributes(display_, window, &state) != 0 && state.map_state == IsViewable &&
        TitleOf(window).find(title) != std::string::npos) {
      return window;
    }
    Window root = 0;
    Window parent = 0;
    Window* children = nullptr;
    unsigned count = 0;
    std::optional<Window> found;
    if (XQueryTree(display_, window, &root, &parent, &children, &count) == 0) return found;
    for (unsigned i = count; i-- > 0 && !found;) found = Find(children[i], title);
    if (children != nullptr) XFree(children);
    return found;
  }

  Display* display_;
};

// Dark letters on a light ground.
bool ShowsText(const Pixels& pixels) {
  const auto green = [](unsigned pixel) { return pixel >> 8 & 0xFF; };
  const auto light = std::count_if(pixels.begin(), pixels.end(), [&](unsigned p) { return green(p) > 200; });
  const auto dark = std::count_if(pixels.begin(), pixels.end(), [&](unsigned p) { return green(p) < 120; });
  const auto all = static_cast<std::ptrdiff_t>(pixels.size());
  return all > 0 && light > all / 3 && dark > all / 200;
}

// More than a caret that blinks.
bool Differ(const Pixels& a, const Pixels& b) {
  if (a.size() != b.size()) return true;
  constexpr int kCaret = 100;
  int different = 0;
  for (std::size_t i = 0; i < a.size() && different <= kCaret; ++i) different += a[i] != b[i] ? 1 : 0;
  return different > kCaret;
}

// Milliseconds of processor time.
double Used(pid_t process) {
  std::ifstream stat("/proc/" + std::to_string(process) + "/stat");
  std::string line;
  std::getline(stat, line);
  std::istringstream rest(line.substr(std::min(line.rfind(')'), line.size())));
  std::string skipped;
  for (int i = 0; i < 12; ++i) rest >> skipped;
  double user = 0;
  double system = 0;
  rest >> user >> system;
  return (user + system) * 1000 / static_cast<double>(sysconf(_SC_CLK_TCK));
}

long Megabytes(pid_t process) {
  std::ifstream status("/proc/" + std::to_string(process) + "/status");
  for (std::string line; std::getline(status, line);) {
    if (line.starts_with("VmHWM:")) return std::stol(line.substr(6)) / 1024;
  }
  return 0;
}

double KeyTime(const ScreenView& screen, Window window) {
  const Pixels before = screen.Look(window, 8);
  const Moment begin = Now();
  screen.PressKey(XK_x);
  (void)Until([&] { return Differ(before, screen.Look(window, 8)); });
  return Since(begin);
}

// When nothing was used for a second, the time before it.
double RestAfter(pid_t process, Moment begin) {
  double used = Used(process);
  double rest = Since(begin);
  while (Since(begin) - rest < 1000 && Since(begin) < kLongest) {
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
    const double now = Used(process);
    if (now - used > 15) rest = Since(begin);
    used = now;
  }
  return rest;
}

pid_t Start(char** arguments) {
  const pid_t process = fork();
  if (process != 0) return process;
  if (std::freopen("/dev/null", "w", stdout) == nullptr) _exit(1);
  execvp(arguments[0], arguments);
  _exit(127);
}

void TellStart(const ScreenView& screen, Window window, const char* title, pid_t process, Moment begin) {
  const double shown = Since(begin);
  const bool painted = Until([&] { return ShowsText(screen.Look(window, 20)); });
  std::printf("%s: window after %.0f ms, painted after %.0f ms (%.0f ms of processor time)%s\n", title, shown,
              Since(begin), Used(process), painted ? "" : ": not painted");
}

bool TellKeys(const ScreenView& screen, Window window, const char* title, pid_t process, Moment begin) {
  if (!Until([&] { return ShowsText(screen.Look(window, 20)); })) return false;
  const double painted = Since(begin);
  const double cost = Used(process);
  double worst = 0;
  for (int i = 0; i < 10; ++i) {
    worst = std::max(worst, KeyTime(screen, window));
    std::this_thread::sleep_for(std::chrono::milliseconds(i < 5 ? 30 : 250));
  }
  const double rest = RestAfter(process, begin);
  std::printf(
      "%s: painted after %.0f ms (%.0f ms of processor time), slowest of 10 keys %.0f ms, at rest after "
      "%.0f ms (%.0f ms), %ld MB of memory at most\n",
      title, painted, cost, worst, rest, Used(process), Megabytes(process));
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  const bool onlyStart = argc > 1 && std::string_view(argv[1]) == "--start";
  if (onlyStart) ++argv;
  if (argc < (onlyStart ? 4 : 3)) return 2;
  const char* const title = argv[1];
  const ScreenView screen;
  const Moment begin = Now();
  const pid_t process = Start(argv + 2);
  std::optional<Window> window;
  bool seen = Until([&] { return (window = screen.Find(title)).has_value(); });
  if (seen && onlyStart) TellStart(screen, *window, title, process, begin);
  if (seen && !onlyStart) seen = TellKeys(screen, *window, title, process, begin);
  if (!seen) std::printf("%s: not seen\n", title);
  kill(process, SIGKILL);
  waitpid(process, nullptr, 0);
  return seen ? 0 : 1;
}
