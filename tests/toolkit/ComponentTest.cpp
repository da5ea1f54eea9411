// The component model: dispatch of messages to windows and drawn controls, double clicks, focus, destruction.
#include "tests/support/Pump.h"
#include "tests/toolkit/ControlFixture.h"
#include "toolkit/FocusOrder.h"
#include "toolkit/TmyHoveringMonitor.h"
#include "toolkit/TmyPanel.h"
#include "toolkit/TmyPublicTimer.h"

namespace {

using Events = std::vector<std::string>;

// A drawn control that writes down what it is told.
class Probe : public TmyControl {
 public:
  Probe(TmyComponent& owner, Events& events, const char* name) : TmyControl(owner), events_(events), name_(name) {}

  void Paint(HDC) override { Say("paint"); }
  void MouseDown(uint32_t, int x, int y) override { Say("down", x, y); }
  void MouseUp(uint32_t, int x, int y) override { Say("up", x, y); }
  void MouseMove(uint32_t, int x, int y) override { Say("move", x, y); }
  void Hover() override { Say("hover"); }
  void Timer(uintptr_t) override { Say("timer"); }
  bool CanFocus() const override { return true; }

 private:
  void Say(const std::string& what) { events_.push_back(name_ + " " + what); }
  void Say(const std::string& what, int x, int y) { Say(what + " " + std::to_string(x) + "," + std::to_string(y)); }

  Events& events_;
  std::string name_;
};

class Window : public TmyComponent {
 public:
  explicit Window(Events& events, TmyComponent* parent = nullptr, DWORD style = WS_POPUP)
      : TmyComponent("Test", style, 0, 10, 20, 200, 100, parent), events_(events) {}
  ~Window() override { events_.push_back("deleted"); }

  void Escape() override { events_.push_back("escape"); }
  void Confirm() override { events_.push_back("confirm"); }
  void MouseUp(uint32_t, int, int) override { events_.push_back("up"); }
  void DoubleClick(int, int) override { events_.push_back("double"); }
  void MouseWheel(WPARAM keysAndNotches, TmyComponent*) override {
    events_.push_back("wheel " + std::to_string(static_cast<int16_t>(HIWORD(keysAndNotches))));
  }
  void Timer(uintptr_t) override {
    TopLevel()->Destroy();
    events_.push_back(IsAlive() ? "alive" : "destroyed");
  }

 private:
  Events& events_;
};

struct ComponentTest : testing::Test {
  void TearDown() override {
    window_->Destroy();
    Input::Pump();
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
  const int width = GetSystemMetrics(SM_CXDOUBLECLK);
  const UINT formerTime = GetDoubleClickTime();
  SetDoubleClickTime(100);
  const std::tuple<int, uint32_t, size_t> cases[] = {{width - 1, 0, 3}, {width, 0, 2}, {-width, 0, 2}, {0, 160, 2}};
  for (const auto& [dx, pause, events] : cases) {
    PumpFor(160);  // the case before is forgotten
    Input::Mouse(*window_, WM_LBUTTONUP, 60, 60, 0);
    PumpFor(pause);
    Input::Mouse(*window_, WM_LBUTTONUP, 60 + dx, 60, 0);
    EXPECT_EQ(Heard().size(), events) << dx << " px, " << pause << " ms";
  }
  SetDoubleClickTime(formerTime);
}

TEST_F(ComponentTest, WheelNotchesAreTruncatedTowardsZeroAndTheRestCountsLater) {
  for (const int delta : {-60, 60, 120, -240, 60, 60}) {
    SendMessageA(window_->Handle(), WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(delta)), 0);
  }
  EXPECT_THAT(events_, ElementsAre("wheel 0", "wheel 0", "wheel 1", "wheel -2", "wheel 0", "wheel 1"));
}

TEST_F(ComponentTest, EscapeAndConfirmReachTheTopLevelWindow) {
  TmyPanel* inner = AddPanel(*AddPanel(*window_));
  SendMessageA(inner->Handle(), WM_KEYDOWN, VK_ESCAPE, 0);
  PostMessageA(inner->Handle(), kMsgConfirm, 0, 0);
  Input::Pump();
  EXPECT_THAT(events_, ElementsAre("escape", "confirm"));
}

TEST_F(ComponentTest, DisablingAPanelDisablesWhatItHoldsAndEnablingRestoresIt) {
  TmyPanel* panel = AddPanel(*window_);
  TmyPanel* inner = AddPanel(*panel);
  Probe on(*panel, events_, "on"), off(*panel, events_, "off");
  off.Enable(false);
  for (const bool enabled : {false, true}) {
    panel->Enable(enabled);
    EXPECT_EQ(on.IsEnabled(), enabled);
    EXPECT_EQ(inner->IsEnabled(), enabled);
    EXPECT_FALSE(off.IsEnabled()) << "it was off by itself";
  }
}

TEST_F(ComponentTest, ControlsArePaintedAroundTheWindowsOwnDrawing) {
  Probe after(*window_, events_, "after"), before(*window_, events_, "before"), outside(*window_, events_, "outside");
  after.SetPaintsAfterOwner(true);
  after.SetBounds(0, 0, 10, 10);
  before.SetBounds(0, 0, 10, 10);
  outside.SetBounds(700, 0, 10, 10);  // of the picture
  ControlFixture::Colors(*window_, {});
  EXPECT_THAT(events_, ElementsAre("before paint", "after paint"));
}

TEST_F(ComponentTest, TabWalksThroughWindowsAndDrawnControlsInTheirOrder) {
  window_->Show(true);
  Probe first(*window_, events_, "first");
  TmyPanel* panel = AddPanel(*window_);
  Probe last(*window_, events_, "last");
  new TmyPanel(*window_, WS_TABSTOP);  // hidden
  window_->FocusDrawn(nullptr);
  FocusOrderOf(*window_).First();
  EXPECT_TRUE(first.HasFocus());
  FocusOrderOf(*window_).Move(*window_, true);
  EXPECT_EQ(GetFocus(), panel->Handle());
  FocusOrderOf(*window_).Move(*panel, true);
  EXPECT_TRUE(last.HasFocus());
  FocusOrderOf(*window_).Move(*window_, true);
  EXPECT_TRUE(first.HasFocus()) << "around the end";
  FocusOrderOf(*window_).Move(*window_, false);
  EXPECT_TRUE(last.HasFocus());
}

TEST_F(ComponentTest, AnActivatedWindowGivesTheFocusBackToTheControlThatHadIt) {
  window_->Show(true);
  TmyPanel* panel = AddPanel(*window_);
  panel->TakeFocus();
  SetFocus(nullptr);
  SetFocus(window_->Handle());
  EXPECT_EQ(GetFocus(), panel->Handle());
  panel->Destroy();
  SetFocus(nullptr);
  SetFocus(window_->Handle());
  EXPECT_EQ(GetFocus(), window_->Handle()) << "a control that is gone is forgotten";
}

TEST_F(ComponentTest, PublicTimerTicksDrawnControlsUntilStopped) {
  Probe probe(*window_, events_, "probe");
  TmyPublicTimer& timer = TmyApplication::Get().PublicTimer();
  timer.StartTimer(probe, 20);
  PumpFor(120);
  EXPECT_GE(Heard().size(), 2u);
  Sleep(50);  // a tick is due and not yet fetched
  timer.StopTimer(probe);
  PumpFor(80);
  EXPECT_THAT(Heard(), IsEmpty());
}

TEST_F(ComponentTest, ARestingCursorHoversOnceAndAGoneControlNever) {
  window_->Show(true);
  auto probe = std::make_unique<Probe>(*window_, events_, "probe");
  const auto hovers = [this] { return std::count(events_.begin(), events_.end(), "probe hover"); };
  probe->SetBounds(0, 0, 100, 100);
  POINT origin = {};
  probe->GetScreenOrigin(origin);
  SetCursorPos(origin.x + 5, origin.y + 5);
  TmyHoveringMonitor& monitor = TmyApplication::Get().HoveringMonitor();
  monitor.Report(*probe);
  PumpFor(300);
  EXPECT_EQ(hovers(), 0);
  PumpFor(600);
  EXPECT_EQ(hovers(), 1);
  monitor.Report(*probe);
  probe.reset();
  PumpFor(800);  // would call into freed memory
  EXPECT_EQ(hovers(), 1);
}

// As a host does that closes the plug-in inside a call.
TEST_F(ComponentTest, AHandlerMayDestroyTheWholeWindowAndTheObjectsGoWithTheMessage) {
  auto* doomed = new Window(events_);
  const HWND owned = (new Window(events_, doomed))->Handle();  // not a child: goes along
  Input::Tick(*new Window(events_, doomed, WS_CHILD));
  EXPECT_THAT(events_, ElementsAre("destroyed", "deleted", "deleted", "deleted"));
  EXPECT_FALSE(IsWindow(owned));
}

TEST_F(ComponentTest, AHookSeesMessagesFirstAndMayEndThem) {
  struct Owner {
    void See(TmyWindowBase&, UINT& message, WPARAM& wParam, LPARAM&) {
      if (message == WM_GETTEXTLENGTH) message = 0, wParam = 77;
    }
  } owner;
  window_->SetHook<&Owner::See>(&owner);
  EXPECT_EQ(SendMessageA(window_->Handle(), WM_GETTEXTLENGTH, 0, 0), 77);
}

}  // namespace
