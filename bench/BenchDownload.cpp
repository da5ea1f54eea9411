// A body of 16 MiB from a web server on this machine: how long it takes beside curl, and what the thread's other
// windows feel of it, at full speed and at that of a quick line. Then whole runs, which save what comes: the EiBi file
// and an archive of 16 MiB.

#include <functional>
#include <memory>

#include "bench/Bench.h"
#include "download/ServerNames.h"
#include "download/TmxDownloadWindow.h"
#include "tests/support/TestEnvironment.h"
#include "toolkit/TmyApplication.h"
#include "toolkit/TmyPublicTimer.h"

namespace {

constexpr uint32_t kRuns = 9;
constexpr uint32_t kTimeOut = 10000;      // milliseconds
constexpr uint32_t kTick = 10;            // milliseconds, the shortest that the system has
constexpr double kSlowestOfCurl = 2;      // at least half of its throughput
constexpr double kLongestHandlerMs = 10;  // of one message

uint16_t port = 0;

// A timer of the thread's, as the host's window has one.
class Ticks : public TmyControl {
 public:
  Ticks() { TmyApplication::Get().PublicTimer().StartTimer(*this, kTick); }
  ~Ticks() override { TmyApplication::Get().PublicTimer().StopTimer(*this); }
  void Timer(uintptr_t) override {
    Gap();
    if (ticked) ticked();
  }
  // The time from the last tick to now counts, too.
  double Longest() {
    Gap();
    return longest_;
  }
  std::function<void()> ticked;

 private:
  void Gap() {
    const double now = Bench::Milliseconds();
    longest_ = std::max(longest_, now - last_);
    last_ = now;
  }
  double last_ = Bench::Milliseconds();
  double longest_ = 0;
};

double CpuMs() {
  FILETIME made, ended, kernel, user;
  GetProcessTimes(GetCurrentProcess(), &made, &ended, &kernel, &user);
  const auto ticks = [](const FILETIME& time) { return static_cast<double>(time.dwLowDateTime); };  // wraps at 429 s
  return (ticks(kernel) + ticks(user)) / 10000;
}

class Download {
 public:
  // False when no whole body came.
  bool Run(const char* path) {
    TmyHttpSocket socket(kTimeOut);
    socket.finished.Bind<&Download::Finished>(this);
    socket.closed.Bind<&Download::Closed>(this);
    socket.timedOut.Bind<&Download::TimedOut>(this);
    const double begin = Bench::Milliseconds();
    const double cpuBegin = CpuMs();
    Ticks ticks;
    socket.Get("127.0.0.1", path);
    while (isRunning_) DispatchOne();
    milliseconds = Bench::Milliseconds() - begin;
    cpu = CpuMs() - cpuBegin;
    longestGap = ticks.Longest();
    return bytes == TmyHttpSocket::kBodyLimit;
  }

  uint32_t bytes = 0;
  double milliseconds = 0;
  double cpu = 0;
  double longestHandler = 0;
  double longestGap = 0;

 private:
  void DispatchOne() {
    MSG message;
    GetMessageA(&message, nullptr, 0, 0);
    const double begin = Bench::Milliseconds();
    DispatchMessageA(&message);
    longestHandler = std::max(longestHandler, Bench::Milliseconds() - begin);
  }
  void Finished(TmyHttpSocket& socket) { bytes = socket.Body().Size(); }
  void Closed(TmySocket&, int) { isRunning_ = false; }
  void TimedOut(TmyHttpSocket&) { isRunning_ = false; }

  bool isRunning_ = true;
};

// A run without its window: each message is timed by itself, those that save apart from the others.
class SavingRun final : private DownloadDesk {
 public:
  explicit SavingRun(const TmyString& folder) : run_(*this, folder) {}
  // False when not both files came.
  bool Run() {
    run_.Start();
    while (isRunning_) DispatchOne();
    return run_.HasEibi() && run_.ArchiveCount() == 1;
  }

  double longestHandler = 0;
  double longestSave = 0;

 private:
  void DispatchOne() {
    MSG message;
    GetMessageA(&message, nullptr, 0, 0);
    hasFinished_ = false;
    const double begin = Bench::Milliseconds();
    DispatchMessageA(&message);
    double& longest = hasFinished_ ? longestSave : longestHandler;
    longest = std::max(longest, Bench::Milliseconds() - begin);
  }
  void ShowStatus(const TmyString&, const TmyString&) override {}
  void ShowProgress(uint32_t, uint32_t, const TmyString&) override {}
  void ShowWorking(bool working) override { isRunning_ = working; }
  void Request(DownloadSite, const TmyString& path) override {
    socket_ = std::make_unique<TmyHttpSocket>(kTimeOut);
    socket_->finished.Bind<&SavingRun::Finished>(this);
    socket_->closed.Bind<&SavingRun::Closed>(this);
    socket_->timedOut.Bind<&SavingRun::TimedOut>(this);
    socket_->Get("127.0.0.1", path);
  }
  void DropRequest() override { socket_.reset(); }
  void Finished(TmyHttpSocket& socket) {
    hasFinished_ = true;
    run_.Finished({socket.HeaderLines().Get(0), socket.Body().Data(), socket.Body().Size()});
  }
  void Closed(TmySocket&, int) { run_.Closed(); }
  void TimedOut(TmyHttpSocket&) { run_.TimedOut(); }

  DownloadRun run_;
  std::unique_ptr<TmyHttpSocket> socket_;
  bool isRunning_ = true;
  bool hasFinished_ = false;
};

// The real window in its own loop, closed as soon as its button says "OK". The longest gap; 0 when not both files came.
double GapWithWindow(const TmyString& folder) {
  TmyComponent owner("Bench", WS_OVERLAPPEDWINDOW, 0, 0, 0, 800, 600, nullptr);
  owner.Show(true);
  Ticks ticks;
  ticks.ticked = [] {
    const HWND window = FindWindowA(nullptr, "Download");
    const HWND bar = window ? GetWindow(window, GW_CHILD) : nullptr;
    if (bar && !IsWindowVisible(bar)) PostMessageA(window, WM_KEYDOWN, VK_RETURN, 1);
  };
  const DownloadResult result = TmxDownloadWindow::Run(owner, folder);
  return result.hasEibi && result.archives == 1 ? ticks.Longest() : 0;
}

void PrintSaving() {
  double handler = 0, save = 0, gap = 0;
  for (uint32_t run = 0; run < kRuns; ++run) {
    const TemporaryFolder folder;
    SavingRun saving(folder.Path().c_str());
    if (!saving.Run()) {
      printf("the web server gave no whole run\n");
      return;
    }
    handler = std::max(handler, saving.longestHandler);
    save = std::max(save, saving.longestSave);
  }
  for (uint32_t run = 0; run < kRuns; ++run) {
    const TemporaryFolder folder;
    gap = std::max(gap, GapWithWindow(folder.Path().c_str()));
  }
  printf("whole runs with an archive of 16 MiB, %u and %u\n", kRuns, kRuns);
  printf("  longest message handler that saves nothing %14.1f ms  (aim %.1f: %s)\n", handler, kLongestHandlerMs,
         Bench::Verdict(handler, kLongestHandlerMs));
  printf("  longest message handler that saves %22.1f ms  (aim %.1f: %s)\n", save, kLongestHandlerMs,
         Bench::Verdict(save, kLongestHandlerMs));
  printf("  longest gap of a timer of %2u ms, with the window %9.1f ms\n", kTick, gap);
}

template <class Figure>
double Worst(const std::vector<Download>& runs, Figure figure) {
  double worst = 0;
  for (const Download& run : runs) worst = std::max(worst, run.*figure);
  return worst;
}

template <class Figure>
double Middle(const std::vector<Download>& runs, Figure figure) {
  std::vector<double> figures;
  figures.reserve(runs.size());
  for (const Download& run : runs) figures.push_back(run.*figure);
  return Bench::Median(std::move(figures));
}

std::vector<Download> Runs(const char* path, uint32_t count) {
  std::vector<Download> runs(count);
  for (Download& run : runs) {
    if (!run.Run(path)) return {};
  }
  return runs;
}

void PrintFigures(const char* speed, const std::vector<Download>& runs) {
  const double handler = Worst(runs, &Download::longestHandler);
  double cpu = 0;  // the mean: the system counts in steps of 10 ms
  for (const Download& run : runs) cpu += run.cpu / static_cast<double>(runs.size());
  printf("download of 16 MiB, %-24s %12.1f ms  (processor: %.1f ms)\n", speed, Middle(runs, &Download::milliseconds),
         cpu);
  printf("  longest message handler %33.1f ms  (aim %.1f: %s)\n", handler, kLongestHandlerMs,
         Bench::Verdict(handler, kLongestHandlerMs));
  printf("  longest gap of a timer of %2u ms %26.1f ms\n", kTick, Worst(runs, &Download::longestGap));
}

}  // namespace

void BenchDownload(uint16_t serverPort, double curlMs) {
  port = serverPort;
  const std::vector<Download> quick = Runs("/body", kRuns);
  const std::vector<Download> slow = Runs("/slow/body", 1);
  if (quick.empty() || slow.empty()) {
    printf("the web server at port %u gave no whole body\n", serverPort);
    return;
  }
  const double ratio = Middle(quick, &Download::milliseconds) / curlMs;
  PrintFigures("full speed", quick);
  printf("  beside curl, which took %.1f ms %25.2f x   (aim %.1f: %s)\n", curlMs, ratio, kSlowestOfCurl,
         Bench::Verdict(ratio, kSlowestOfCurl));
  PrintFigures("8 MiB a second", slow);
  PrintSaving();
}

// The server of the measured run in place of those of the module.
const char* ServerNames::EibiHost() noexcept {
  return "127.0.0.1";
}

const char* ServerNames::HfccHost() noexcept {
  return "127.0.0.1";
}

uint16_t ServerNames::Port() noexcept {
  return port;
}

uint32_t ServerNames::TimeOut() noexcept {
  return kTimeOut;
}
