// The module under a clock of the test's own: a week of scheduled recordings in fast motion, for many sets of tasks,
// beside a model that shares nothing with the module but the task file.
#include <chrono>
#include <filesystem>

#include "tests/support/ModuleClock.h"
#include "tests/system/PluginFixture.h"

namespace {

using namespace std::chrono;
using ModuleClock::Ticks;

constexpr uint32_t kSets = 50;
constexpr size_t kHeaderSize = 48;  // of a recording
constexpr seconds kLocalOffset{5 * 3600 + 1800};
constexpr sys_days kMonday = year(2026) / 3 / 2;
sys_seconds& now = ModuleClock::utc;

// One record of the task file.
struct Task {
  uint64_t frequency;
  uint32_t mode, reserved;
  uint64_t from, to;  // 100 ns since 1601
  uint32_t start, stop, days, enabled;

  [[nodiscard]] bool IsDue() const {
    constexpr uint64_t kDay = 864'000'000'000;
    const uint64_t today = Ticks(now) / kDay;  // the first one was a Monday
    const uint64_t second = Ticks(now) % kDay / 10'000'000;
    const bool isOutside =
        start < stop ? second < start || second > stop : start > stop && stop < second && second < start;
    return enabled != 0 && !isOutside && today >= from / kDay && today <= to / kDay &&
           (days >> (today + 1) % 7) % 2 == 1;
  }
};
static_assert(sizeof(Task) == 48);

// What is to be seen of the plug-in from outside.
struct Model {
  std::vector<Task> tasks;
  bool isUtc = false;
  const Task* running = nullptr;
  std::vector<HostCall> calls;
  std::map<std::string, std::string> files;  // names and what was recorded
  std::string newest;
  uint32_t instance = 0;  // as the module calls itself

  void Called(uint32_t code, uint32_t a) { calls.push_back({instance, code, a, 0, "0"}); }

  void Stop() {
    if (!running) return;
    running = nullptr;
    Called(0x1101, 0);
  }
  void Tick() {
    if (running) {
      if (!running->IsDue()) Stop();
      return;
    }
    const auto due = std::find_if(tasks.begin(), tasks.end(), [](const Task& task) { return task.IsDue(); });
    if (due == tasks.end()) return;
    running = &*due;
    Called(0x800, static_cast<uint32_t>(due->frequency)), Called(0x900, due->mode);
    Called(0xF00, 0), Called(0x902, 5000), Called(0x1101, 0);
    const SYSTEMTIME t = ModuleClock::Calendar(isUtc ? now : now + kLocalOffset);
    char name[80];
    std::snprintf(name, sizeof name, "task_%llu_%04u%02u%02u_%02u%02u%02u.wav", due->frequency, t.wYear, t.wMonth,
                  t.wDay, t.wHour, t.wMinute, t.wSecond);
    files[newest = name].clear();
  }
};

struct WeekTest : PluginFixture {
  uint32_t Below(uint32_t end) { return random_() % end; }
  uint64_t DateInTheWeek() { return Ticks(kMonday + days(Below(7)) + seconds(Below(86400))) + Below(10'000'000); }
  // Times lie on five minutes, where the test looks second by second; some reach beyond the day.
  Task RandomTask() {
    Task task = {};
    task.frequency = Below(8) == 0 ? 10'000'000'000 : 150'000 + Below(30'000'000);
    task.mode = Below(21), task.reserved = Below(UINT32_MAX);
    task.from = DateInTheWeek(), task.to = DateInTheWeek();
    if (task.from > task.to && Below(8) != 0) std::swap(task.from, task.to);
    for (uint64_t* date : {&task.from, &task.to}) *date |= uint64_t{Below(12) == 0} << 63;  // beyond all dates
    task.start = Below(288) * 300;
    task.stop = Below(10) == 0 ? task.start : Below(4) == 0 ? task.start + 3600 : Below(288) * 300;
    task.days = Below(3) == 0 ? 127 : random_(), task.enabled = Below(8);
    return task;
  }
  void Hear(Model& model) {
    const std::string samples(6000, static_cast<char>('a' + Below(26)));
    Send(44100, 1, 3000, samples);
    if (model.running) model.files[model.newest] += samples;
  }
  void RunWeek(uint32_t set) {
    random_.seed(set);
    now = kMonday - seconds(2);
    Model model;
    model.isUtc = set % 2 == 1;
    for (uint32_t left = 1 + Below(6); left > 0; --left) model.tasks.push_back(RandomTask());
    const std::string file(reinterpret_cast<const char*>(model.tasks.data()), model.tasks.size() * sizeof(Task));
    ASSERT_TRUE(WriteFileBytes(TaskFile(), file));
    const std::string recordings = documents_.DataFolder() + "\\Recordings\\";
    std::filesystem::remove_all(recordings);
    ForgetSettings();
    const HWND window = StartPlugin();
    KillTimer(window, 1);
    std::filesystem::remove(TaskFile());  // it is written again at the end
    if (model.isUtc) Choose(window, "&UTC time");
    for (seconds at{0}; at < days(7); at += seconds(300)) {
      for (const seconds offset : {seconds(-1), seconds(0), seconds(1), seconds(2 + Below(297))}) {
        now = kMonday + at + offset;
        if (Below(100) == 0) host_.Notify(7, 0x800), model.Stop();
        SendMessageA(window, WM_TIMER, Below(8) == 0 ? 2 : 1, 0);
        if (model.instance == 0 && !host_.Calls().empty()) model.instance = host_.Calls().front().instance;
        model.Tick();
        ASSERT_EQ(host_.Calls(), model.calls) << "set " << set << ", second " << (now - kMonday).count();
        ASSERT_EQ(TextOf(window) != "Marlux 3", model.running != nullptr) << TextOf(window);
        ASSERT_TRUE(model.calls.size() != 5 || std::filesystem::exists(recordings + model.newest)) << model.newest;
        if (set < 5 && Below(200) == 0) Hear(model);
        host_.Clear(), model.calls.clear();
      }
    }
    host_.Close(7);
    EXPECT_EQ(ReadFileBytes(TaskFile()), file);
    std::map<std::string, std::string> files;
    std::error_code missing;  // when no task was due
    for (const auto& entry : std::filesystem::directory_iterator(recordings, missing)) {
      std::string& bytes = files[entry.path().filename().string()] = ReadFileBytes(entry.path().string());
      bytes.erase(0, bytes.find_first_not_of('\0', kHeaderSize));  // one that heard nothing is padded
    }
    EXPECT_TRUE(files == model.files) << "set " << set;
  }

  std::mt19937 random_;
};

}  // namespace

TEST_F(WeekTest, RecordsWhatTheModelRecords) {
  ModuleClock::localOffset = kLocalOffset;
  ASSERT_TRUE(ModuleClock::Replace("marlux3.dll"));
  for (uint32_t set = 0; set < kSets && !HasFailure(); ++set) RunWeek(set);
}
