// The component model: dispatch of messages to windows and drawn controls, double clicks, focus, destruction.
#include "tests/toolkit/ControlFixture.h"
#include "toolkit/TabOrder.h"
#include "toolkit/TmyHoveringMonitor.h"
#include "toolkit/TmyPanel.h"

namespace {

using Events = std::vector<std::string>;

// A drawn control that writes down what it is told.
class Probe : public TmyControl {
 public:
  Probe(TmyComponent& owner, Events& events, const char* name) : TmyControl(owner), events_(events), name_(name) {}

  void MouseDown(uint32_t, int x, int y) override { Say("down", x, y); }
  void MouseUp(uint32_t, int x, int y) override { Say("up", x, y); }
  void MouseMove(uint32_t, int x, int y) override { Say("move", x, y); }
  void Hover() override { Say("hover", 0, 0); }
  bool CanFocus() const override { return true; }

 private:
  void Say(const char* what, int x, int y) {
    events_.push_back(name_ + " " + what + " " + std::to_string(x) + "," + std::to_string(y));
  }

  Events& events_;
  std::string name_;
};

class Window : public TmyComponent {
 public:
  explicit Window(Events& events, TmyComponent* parent = nullptr, DWORD style = WS_POPUP)
      : TmyComponent("Test", style, 0, 10, 20, 200, 100, parent), events_(events) {}
  ~Window() override { events_.push_back("deleted"); }

  void DoubleClick(int, int) override { events_.push_back("double"); }
  void MouseWheel(WPARAM keysAndNotches, TmyComponent*) override {
    events_.push_back("wheel " + std::to_string(static_cast<int16_t>(HIWORD(keysAndNotches))));
  }
  void Timer(uintptr_t) override {
    if (hostsFrame) __builtin_longjmp(hostsFrame, 1);
    TopLevel()->Destroy();
    events_.push_back(IsAlive() ? "alive" : "destroyed");
  }

  void** hostsFrame = nullptr;

 private:
  Events& events_;
};

struct ComponentTest : testing::Test {
  void TearDown() override {
    window_->Destroy();
    PumpFor(0);
  }
  Events Heard() { return std::exchange(events_, {}); }
  TmyPanel* AddPanel(TmyComponent& parent) { return new TmyPanel(parent, WS_VISIBLE | WS_TABSTOP); }

  Events events_;
  Window* window_ = new Window(events_);  // deleted by its window
};

TEST_F(ComponentTest, DrawnControlsGetTheMouseInTheirOwnCoordinatesUntilItIsReleased) {
  Probe lower(*window_, events_, "lower"), upper(*window_, events_, "upper");
  lower.SetBounds(0, 0, 50, 50);
  upper.SetBounds(40, 40, 50, 50);
  Input::Drag(*window_, 45, 48, 5, 6);  // both are there: the one painted last has it
  EXPECT_THAT(Heard(), ElementsAre("upper down 5,8", "upper move -35,-34", "upper up -35,-34"));
  upper.Show(false);
  Input::Click(*window_, 45, 48);
  EXPECT_THAT(Heard(), ElementsAre("lower down 45,48", "lower up 45,48"));
  lower.Enable(false);
  Input::Click(*window_, 45, 48);
  EXPECT_THAT(Heard(), IsEmpty()) << "a disabled control hears nothing";
}

TEST_F(ComponentTest, TwoReleasesCloseInTimeAndPlaceAreADoubleClick) {
  const int reach = GetSystemMetrics(SM_CXDOUBLECLK) - 1;
  const std::tuple<int, uint32_t, size_t> cases[] = {
      {60, 0, 0}, {60 + reach, 0, 1}, {61 + 2 * reach, 0, 1}, {61 + 2 * reach, GetDoubleClickTime() + 60, 1}};
  for (const auto& [x, pause, events] : cases) {
    PumpFor(pause);
    Input::Mouse(*window_, WM_LBUTTONUP, x, 60, 0);
    EXPECT_EQ(events_.size(), events) << x << " after " << pause << " ms";
  }
}

TEST_F(ComponentTest, WheelNotchesAreTruncatedTowardsZero) {
  for (const int delta : {-119, 60, 60, 120, -250}) {
    SendMessageA(window_->Handle(), WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(delta)), 0);
  }
  EXPECT_THAT(events_, ElementsAre("wheel 0", "wheel 0", "wheel 0", "wheel 1", "wheel -2"));
}

TEST_F(ComponentTest, TabWalksThroughWindowsAndDrawnControlsInTheirOrder) {
  window_->Show(true);
  Probe first(*window_, events_, "first");
  TmyPanel* panel = AddPanel(*window_);
  Probe last(*window_, events_, "last");
  Probe hidden(*window_, events_, "hidden");
  hidden.Show(false);
  window_->FocusDrawn(nullptr);
  TabOrder(*window_).First();
  EXPECT_TRUE(first.HasFocus());
  TabOrder(*window_).Move(*window_, true);
  EXPECT_EQ(GetFocus(), panel->Handle());
  TabOrder(*window_).Move(*panel, true);
  EXPECT_TRUE(last.HasFocus());
  TabOrder(*window_).Move(*window_, true);
  EXPECT_TRUE(first.HasFocus()) << "around the end";
  TabOrder(*window_).Move(*window_, false);
  EXPECT_TRUE(last.HasFocus());
}

TEST_F(ComponentTest, ARestingCursorHoversOnceAndAGoneControlNever) {
  window_->Show(true);
  auto probe = std::make_unique<Probe>(*window_, events_, "probe");
  const auto hovers = [this] { return std::count(events_.begin(), events_.end(), "probe hover 0,0"); };
  probe->SetBounds(0, 0, 100, 100);
  POINT origin = {};
  probe->GetScreenOrigin(origin);
  SetCursorPos(origin.x + 5, origin.y + 5);
  TmyHoveringMonitor& monitor = TmyApplication::Get().HoveringMonitor();
  for (const auto& [wait, count] : {std::pair{300, 0}, {600, 1}, {800, 1}}) {
    monitor.Report(*probe);
    if (wait == 800) probe.reset();  // would be called when it is gone
    PumpFor(static_cast<uint32_t>(wait));
    EXPECT_EQ(hovers(), count) << wait;
  }
}

// As a host does that closes the plug-in inside a call.
TEST_F(ComponentTest, AHandlerMayDestroyTheWholeWindowAndTheObjectsGoWithTheMessage) {
  auto* doomed = new Window(events_);
  const HWND owned = (new Window(events_, doomed))->Handle();  // not a child: goes along
  Input::Tick(*new Window(events_, doomed, WS_CHILD));
  EXPECT_THAT(events_, ElementsAre("destroyed", "deleted", "deleted", "deleted"));
  EXPECT_FALSE(IsWindow(owned));
}

TEST_F(ComponentTest, AnExceptionOfTheHostsOutOfAHandlerLeavesNothingInProgress) {
  static void* frame[5];
  auto* left = new Window(events_);
  left->hostsFrame = frame;
  if (__builtin_setjmp(frame) == 0) TmyWindowBase::StaticWndProc(left->Handle(), WM_TIMER, 1, 0);
  EXPECT_FALSE(TmyApplication::Get().Dispatching().IsUp());
  left->Destroy();
  EXPECT_THAT(events_, ElementsAre("deleted"));
}

TEST_F(ComponentTest, KeysAreTheWindowsOwnInALoopForDialogs) {
  InputWindow window;
  MSG escape = {window.Handle(), WM_KEYDOWN, VK_ESCAPE, 1, 0, {}};
  EXPECT_TRUE(IsDialogMessageA(window.Handle(), &escape));
  PumpFor(0);
  EXPECT_EQ(window.escapes, 1);
}

}  // namespace
