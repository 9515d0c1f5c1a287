// zekview-window-probe first-frame COMMAND...
//   Starts the command. Prints the milliseconds until its first window is drawn, and its process
//   id. Ends when the command ends.
// zekview-window-probe ping WINDOW [PROCESS...]
//   Copies standard input to standard output until its end. Meanwhile asks the window again and
//   again whether it is alive, as a window manager does. Then prints the longest time to an answer
//   (milliseconds) and the number of answers. PROCESS names the processes that an answer involves:
//   the program's and the X server's. With them, also prints the longest time reduced by the time
//   that they waited for a processor (the longest of their waits counts).
//
// Both measure from outside, through the X server, so that they work with any program.

#include <X11/Xlib.h>
#include <X11/extensions/Xdamage.h>
#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <poll.h>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;
constexpr int kLongestWait = 60'000;  // ms
constexpr int kPause = 10'000;        // microseconds between an answer and the next question

double MillisecondsSince(Clock::time_point start) {
  return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

struct CloseDisplay {
  void operator()(Display* display) const { XCloseDisplay(display); }
};
using DisplayHandle = std::unique_ptr<Display, CloseDisplay>;

// Reads the next event; false if none comes in time.
bool NextEvent(Display* display, XEvent& event) {
  if (XPending(display) == 0) {
    pollfd connection{XConnectionNumber(display), POLLIN, 0};
    if (poll(&connection, 1, kLongestWait) <= 0) return false;
  }
  XNextEvent(display, &event);
  return true;
}

// A window may be destroyed before a request about it arrives.
int IgnoreError(Display* /*display*/, XErrorEvent* /*error*/) { return 0; }

int FirstFrame(Display* display, char** command) {
  int damageEvents = 0;
  int damageErrors = 0;
  if (XDamageQueryExtension(display, &damageEvents, &damageErrors) == 0) return 1;
  XSelectInput(display, DefaultRootWindow(display), SubstructureNotifyMask);
  XSync(display, False);

  const Clock::time_point start = Clock::now();
  const pid_t child = fork();
  if (child == 0) {
    close(STDOUT_FILENO);
    dup(STDERR_FILENO);
    execv(command[0], command);
    _exit(127);
  }
  std::set<Window> mapped;
  XEvent event;
  while (NextEvent(display, event)) {
    if (event.type == CreateNotify && event.xcreatewindow.override_redirect == False) {
      XDamageCreate(display, event.xcreatewindow.window, XDamageReportRawRectangles);
    } else if (event.type == MapNotify) {
      mapped.insert(event.xmap.window);
    } else if (event.type == damageEvents + XDamageNotify) {
      const auto& damage = reinterpret_cast<const XDamageNotifyEvent&>(event);  // as Xlib requires
      if (!mapped.contains(damage.drawable)) continue;
      std::printf("%.1f %d\n", MillisecondsSince(start), child);
      std::fflush(stdout);
      waitpid(child, nullptr, 0);
      return 0;
    }
  }
  std::fputs("zekview-window-probe: no window was drawn\n", stderr);
  return 1;
}

// The total milliseconds that the first thread of each process has waited for a processor.
std::vector<double> WaitedForProcessor(const std::vector<std::string>& processes) {
  std::vector<double> milliseconds;
  for (const std::string& process : processes) {
    std::ifstream statistics("/proc/" + process + "/schedstat");
    double ran = 0;
    double waited = 0;  // nanoseconds
    statistics >> ran >> waited;
    milliseconds.push_back(waited / 1e6);
  }
  return milliseconds;
}

// The processes may have waited at the same time, so take the longest wait, not the sum.
double LongestWait(const std::vector<double>& before, const std::vector<double>& after) {
  double longest = 0;
  for (std::size_t i = 0; i < before.size(); ++i) longest = std::max(longest, after[i] - before[i]);
  return longest;
}

class Pings {
 public:
  Pings(Display* display, Window window, std::vector<std::string> processes)
      : display_(display),
        window_(window),
        processes_(std::move(processes)),
        protocols_(XInternAtom(display, "WM_PROTOCOLS", False)),
        ping_(XInternAtom(display, "_NET_WM_PING", False)) {
    XSelectInput(display, DefaultRootWindow(display), SubstructureNotifyMask);
  }

  // Returns false if no answer comes.
  bool Ask() {
    const Clock::time_point start = Clock::now();
    const std::vector<double> waited = WaitedForProcessor(processes_);
    XEvent question{};
    question.xclient.type = ClientMessage;
    question.xclient.window = window_;
    question.xclient.message_type = protocols_;
    question.xclient.format = 32;
    question.xclient.data.l[0] = static_cast<long>(ping_);
    question.xclient.data.l[1] = ++answers_;  // the answer repeats this time stamp
    question.xclient.data.l[2] = static_cast<long>(window_);
    XSendEvent(display_, window_, False, NoEventMask, &question);
    XFlush(display_);
    XEvent event;
    while (NextEvent(display_, event)) {
      if (event.type != ClientMessage || event.xclient.message_type != protocols_ ||
          event.xclient.data.l[1] != answers_) {
        continue;
      }
      const double took = MillisecondsSince(start);
      worst_ = std::max(worst_, took);
      const double lost = LongestWait(waited, WaitedForProcessor(processes_));
      worstOfItsOwn_ = std::max(worstOfItsOwn_, took - lost);
      return true;
    }
    return false;
  }

  double Worst() const { return worst_; }
  double WorstOfItsOwn() const { return worstOfItsOwn_; }
  long Answers() const { return answers_; }

 private:
  Display* display_;
  Window window_;
  std::vector<std::string> processes_;
  Atom protocols_;
  Atom ping_;
  long answers_ = 0;
  double worst_ = 0;
  double worstOfItsOwn_ = 0;
};

int Ping(Display* display, Window window, const std::vector<std::string>& processes) {
  Pings pings(display, window, processes);
  pollfd input{STDIN_FILENO, POLLIN, 0};
  while (true) {
    if (!pings.Ask()) {
      std::fputs("zekview-window-probe: the window does not answer\n", stderr);
      return 1;
    }
    if (poll(&input, 1, 0) > 0) {
      std::array<char, 256> text{};
      const ssize_t length = read(STDIN_FILENO, text.data(), text.size());
      if (length <= 0) break;
      std::fwrite(text.data(), 1, static_cast<std::size_t>(length), stdout);
    }
    usleep(kPause);
  }
  std::printf("%.1f %ld", pings.Worst(), pings.Answers());
  if (!processes.empty()) std::printf(" %.1f", pings.WorstOfItsOwn());
  std::puts("");
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  const std::span<char*> arguments(argv, static_cast<std::size_t>(argc));
  const DisplayHandle display(XOpenDisplay(nullptr));
  if (!display || arguments.size() < 3) {
    std::fputs("zekview-window-probe: needs a display and a command\n", stderr);
    return 2;
  }
  XSetErrorHandler(IgnoreError);
  if (std::string_view(arguments[1]) == "first-frame") return FirstFrame(display.get(), argv + 2);
  std::vector<std::string> processes(arguments.begin() + 3, arguments.end());
  if (!processes.empty()) processes.emplace_back("self");
  return Ping(display.get(), std::strtoul(arguments[2], nullptr, 0), processes);
}
