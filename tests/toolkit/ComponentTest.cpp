// The component model: dispatch of messages to windows and drawn controls, double clicks, focus, destruction.
#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "foundation/Clock.h"
#include "tests/toolkit/ControlFixture.h"
#include "toolkit/FocusOrder.h"
#include "toolkit/TmyHoveringMonitor.h"
#include "toolkit/TmyPanel.h"
#include "toolkit/TmyPublicTimer.h"

namespace {

using Events = std::vector<std::string>;
using testing::ElementsAre;

// A drawn control that writes down what it is told.
class Probe : public TmyControl {
 public:
  Probe(TmyComponent& owner, Events& events, const char* name) : TmyControl(owner), events_(events), name_(name) {}

  void Paint(HDC) override { Say("paint"); }
  void MouseDown(uint32_t, int x, int y) override { Say("down", x, y); }
  void MouseUp(uint32_t, int x, int y) override { Say("up", x, y); }
  void MouseMove(uint32_t, int x, int y) override { Say("move", x, y); }
  void DoubleClick(int x, int y) override { Say("double", x, y); }
  void Hover() override { Say("hover"); }
  void Timer(uintptr_t id) override { Say("timer", static_cast<int>(id), 0); }
  bool CanFocus() const override { return true; }
  void FocusChanged(bool focused) override { Say(focused ? "focus" : "blur"); }

 private:
  void Say(const std::string& what) { events_.push_back(name_ + " " + what); }
  void Say(const std::string& what, int x, int y) { Say(what + " " + std::to_string(x) + "," + std::to_string(y)); }

  Events& events_;
  std::string name_;
};

class Window : public TmyComponent {
 public:
  explicit Window(Events& events, TmyComponent* parent = nullptr, int x = 10, int y = 20, bool* deleted = nullptr)
      : TmyComponent("Test", WS_POPUP, 0, x, y, 200, 100, parent), events_(events), deleted_(deleted) {}
  ~Window() override {
    if (deleted_) *deleted_ = true;
  }

  void Escape() override { events_.push_back("escape"); }
  void Confirm() override { events_.push_back("confirm"); }
  void MouseUp(uint32_t, int, int) override { events_.push_back("window up"); }
  void DoubleClick(int, int) override { events_.push_back("window double"); }
  void MouseWheel(WPARAM keysAndNotches, TmyComponent*) override {
    events_.push_back("wheel " + std::to_string(static_cast<int16_t>(HIWORD(keysAndNotches))));
  }
  void ConstrainBounds(int&, int&, int& width, int&) override { width = std::max(width, 150); }
  bool KeyDown(uint32_t key, LPARAM flags) override {
    if (key == VK_F9) {
      Destroy();
      events_.push_back(deleted_ && *deleted_ ? "object gone" : "object alive");
      return true;
    }
    return TmyComponent::KeyDown(key, flags);
  }

 private:
  Events& events_;
  bool* deleted_;
};

using Input::Pump;

void PumpFor(uint32_t milliseconds) {
  const uint32_t end = GetTickCount() + milliseconds;
  while (static_cast<int32_t>(end - GetTickCount()) > 0) {
    Pump();
    MsgWaitForMultipleObjects(0, nullptr, FALSE, 10, QS_ALLINPUT);
  }
}

void Press(const TmyComponent& window, int x, int y) {
  Input::Mouse(window, WM_LBUTTONDOWN, x, y);
}
void Release(const TmyComponent& window, int x, int y) {
  Input::Mouse(window, WM_LBUTTONUP, x, y, 0);
}

class ComponentTest : public testing::Test {
 protected:
  void TearDown() override {
    Clock::Release();
    window_->Destroy();
    Pump();
  }

  Events events_;
  Window* window_ = new Window(events_);  // deleted by its window
};

TEST_F(ComponentTest, ClassIsNamedByTheModulesLoadAddress) {
  char expected[40];
  snprintf(expected, sizeof(expected), "TmyComponent %x", reinterpret_cast<uintptr_t>(GetModuleHandleA(nullptr)) >> 16);
  char actual[40] = {};
  GetClassNameA(window_->Handle(), actual, sizeof(actual));
  EXPECT_STREQ(actual, expected);
}

TEST_F(ComponentTest, MinusOneTwiceCentresTheWindow) {
  const struct {
    int x, y;
    POINT at;
  } cases[] = {
      {-1, -1, {(GetSystemMetrics(SM_CXSCREEN) - 200) / 2, (GetSystemMetrics(SM_CYSCREEN) - 100) / 2}},
      {-1, 0, {-1, 0}},
      {0, -1, {0, -1}},
  };
  for (const auto& c : cases) {
    auto* other = new Window(events_, nullptr, c.x, c.y);
    RECT place = {};
    GetWindowRect(other->Handle(), &place);
    EXPECT_EQ(place.left, c.at.x);
    EXPECT_EQ(place.top, c.at.y);
    EXPECT_EQ(other->Bounds().left, c.at.x);
    other->Destroy();
  }
}

TEST_F(ComponentTest, DrawnControlsGetTheMouseInTheirOwnCoordinatesUntilItIsReleased) {
  Probe lower(*window_, events_, "lower");
  Probe upper(*window_, events_, "upper");
  lower.SetBounds(0, 0, 50, 50);
  upper.SetBounds(40, 40, 50, 50);
  Press(*window_, 45, 48);  // both are there: the one painted last has it
  SendMessageA(window_->Handle(), WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(5, 6));
  Release(*window_, 5, 6);
  EXPECT_THAT(events_, ElementsAre("upper down 5,8", "upper move -35,-34", "upper up -35,-34"));
  upper.Show(false);
  events_.clear();
  Press(*window_, 45, 48);
  Release(*window_, 45, 48);
  EXPECT_THAT(events_, ElementsAre("lower down 45,48", "lower up 45,48"));
  events_.clear();
  lower.Enable(false);
  Press(*window_, 45, 48);
  Release(*window_, 45, 48);
  EXPECT_TRUE(events_.empty()) << "a disabled control hears nothing";
}

TEST_F(ComponentTest, TwoReleasesCloseInTimeAndPlaceAreADoubleClick) {
  const int width = GetSystemMetrics(SM_CXDOUBLECLK);
  const UINT formerTime = GetDoubleClickTime();
  SetDoubleClickTime(100);
  const struct {
    int dx;
    uint32_t pause;
    size_t doubles;
  } cases[] = {{0, 0, 1}, {width - 1, 0, 1}, {width, 0, 0}, {-width, 0, 0}, {0, 160, 0}};
  for (const auto& c : cases) {
    PumpFor(160);  // the case before is forgotten
    events_.clear();
    Release(*window_, 60, 60);
    if (c.pause) PumpFor(c.pause);
    Release(*window_, 60 + c.dx, 60);
    EXPECT_EQ(events_.size(), 2 + c.doubles) << c.dx << " px, " << c.pause << " ms";
  }
  SetDoubleClickTime(formerTime);
}

TEST_F(ComponentTest, WheelNotchesAreTruncatedTowardsZero) {
  for (const int delta : {120, -120, -240, 60, -60}) {
    SendMessageA(window_->Handle(), WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(delta)), 0);
  }
  EXPECT_THAT(events_, ElementsAre("wheel 1", "wheel -1", "wheel -2", "wheel 0", "wheel 0"));
}

TEST_F(ComponentTest, EscapeAndConfirmReachTheTopLevelWindow) {
  auto* middle = new TmyPanel(*window_, WS_VISIBLE);
  auto* inner = new TmyPanel(*middle, WS_VISIBLE);
  SendMessageA(inner->Handle(), WM_KEYDOWN, VK_ESCAPE, 0);
  PostMessageA(inner->Handle(), kMsgConfirm, 0, 0);
  Pump();
  EXPECT_THAT(events_, ElementsAre("escape", "confirm"));
}

TEST_F(ComponentTest, BoundsAreConstrainedBeforeTheWindowMoves) {
  window_->SetBounds(10, 20, 20, 60);
  EXPECT_EQ(window_->Width(), 150);
  EXPECT_EQ(window_->Height(), 60);
}

TEST_F(ComponentTest, DisablingAPanelDisablesWhatItHoldsAndEnablingRestoresIt) {
  auto* panel = new TmyPanel(*window_, WS_VISIBLE);
  auto* inner = new TmyPanel(*panel, WS_VISIBLE);
  Probe on(*panel, events_, "on");
  Probe off(*panel, events_, "off");
  off.Enable(false);
  panel->Enable(false);
  EXPECT_FALSE(on.IsEnabled());
  EXPECT_FALSE(inner->IsEnabled());
  panel->Enable(true);
  EXPECT_TRUE(on.IsEnabled());
  EXPECT_TRUE(inner->IsEnabled());
  EXPECT_FALSE(off.IsEnabled()) << "it was off by itself";
}

TEST_F(ComponentTest, ControlsArePaintedAroundTheWindowsOwnDrawing) {
  Probe after(*window_, events_, "after");
  Probe before(*window_, events_, "before");
  Probe outside(*window_, events_, "outside");
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
  auto* panel = new TmyPanel(*window_, WS_VISIBLE | WS_TABSTOP);
  Probe last(*window_, events_, "last");
  auto* hidden = new TmyPanel(*window_, WS_TABSTOP);
  (void)hidden;
  window_->FocusDrawn(nullptr);
  FocusOrderOf(*window_).First();
  EXPECT_EQ(window_->FocusedControl(), &first);
  FocusOrderOf(*window_).Move(*window_, true);
  EXPECT_EQ(::GetFocus(), panel->Handle());
  FocusOrderOf(*window_).Move(*panel, true);
  EXPECT_EQ(::GetFocus(), window_->Handle());
  EXPECT_EQ(window_->FocusedControl(), &last);
  FocusOrderOf(*window_).Move(*window_, true);
  EXPECT_EQ(window_->FocusedControl(), &first) << "around the end";
  FocusOrderOf(*window_).Move(*window_, false);
  EXPECT_EQ(window_->FocusedControl(), &last);
}

TEST_F(ComponentTest, AnActivatedWindowGivesTheFocusBackToTheControlThatHadIt) {
  window_->Show(true);
  auto* panel = new TmyPanel(*window_, WS_VISIBLE | WS_TABSTOP);
  panel->TakeFocus();
  auto* other = new Window(events_);
  other->Show(true);
  ::SetFocus(other->Handle());
  ::SetFocus(window_->Handle());
  EXPECT_EQ(::GetFocus(), panel->Handle());
  panel->Destroy();
  ::SetFocus(other->Handle());
  ::SetFocus(window_->Handle());
  EXPECT_EQ(::GetFocus(), window_->Handle()) << "a control that is gone is forgotten";
  other->Destroy();
}

TEST_F(ComponentTest, PublicTimerTicksDrawnControlsUntilStopped) {
  Probe probe(*window_, events_, "probe");
  TmyApplication::Get().PublicTimer().StartTimer(probe, 20);
  PumpFor(120);
  EXPECT_GE(events_.size(), 2u);
  EXPECT_EQ(events_.front(), "probe timer 0,0");
  Sleep(50);  // a tick is due and not yet fetched
  TmyApplication::Get().PublicTimer().StopTimer(probe);
  events_.clear();
  PumpFor(80);
  EXPECT_TRUE(events_.empty());
}

TEST_F(ComponentTest, ARestingCursorHoversOnceAndAGoneControlNever) {
  window_->Show(true);
  auto probe = std::make_unique<Probe>(*window_, events_, "probe");
  probe->SetBounds(0, 0, 100, 100);
  POINT origin = {};
  probe->GetScreenOrigin(origin);
  SetCursorPos(origin.x + 5, origin.y + 5);
  Pump();
  events_.clear();
  TmyHoveringMonitor& monitor = TmyApplication::Get().HoveringMonitor();
  monitor.Report(*probe);
  PumpFor(300);
  EXPECT_EQ(std::count(events_.begin(), events_.end(), "probe hover"), 0);
  PumpFor(600);
  EXPECT_EQ(std::count(events_.begin(), events_.end(), "probe hover"), 1);
  monitor.Report(*probe);
  probe.reset();
  PumpFor(800);  // would call into freed memory
  EXPECT_EQ(std::count(events_.begin(), events_.end(), "probe hover"), 1);
}

TEST_F(ComponentTest, AWindowMayGoInsideItsOwnHandlerAndItsObjectGoesWithTheMessage) {
  bool deleted = false;
  auto* doomed = new Window(events_, nullptr, 0, 0, &deleted);
  SendMessageA(doomed->Handle(), WM_KEYDOWN, VK_F9, 0);
  EXPECT_THAT(events_, ElementsAre("object alive"));
  EXPECT_TRUE(deleted);
}

// A child whose handler destroys the top-level window, as a host does that closes the plug-in inside a call.
class Assassin : public TmyPanel {
 public:
  Assassin(TmyComponent& parent, const bool& parentDeleted) : TmyPanel(parent, 0), parentDeleted_(parentDeleted) {}
  void Timer(uintptr_t) override {
    TopLevel()->Destroy();
    sawParentObject = !parentDeleted_;
    sawOwnWindow = IsAlive();
  }
  static bool sawParentObject;
  static bool sawOwnWindow;

 private:
  const bool& parentDeleted_;
};
bool Assassin::sawParentObject = false;
bool Assassin::sawOwnWindow = true;

TEST_F(ComponentTest, AChildMayDestroyTheWholeWindowInsideItsHandler) {
  bool deleted = false;
  auto* doomed = new Window(events_, nullptr, 0, 0, &deleted);
  auto* owned = new Window(events_, doomed);  // owned, not a child: goes along
  const HWND ownedHandle = owned->Handle();
  auto* child = new Assassin(*doomed, deleted);
  SendMessageA(child->Handle(), WM_TIMER, 1, 0);
  EXPECT_TRUE(Assassin::sawParentObject);
  EXPECT_FALSE(Assassin::sawOwnWindow);
  EXPECT_TRUE(deleted);
  EXPECT_FALSE(IsWindow(ownedHandle));
}

TEST_F(ComponentTest, AHookSeesMessagesFirstAndMayEndThem) {
  struct Owner {
    void See(TmyWindowBase&, UINT& message, WPARAM& wParam, LPARAM&) {
      if (message != WM_GETTEXTLENGTH) return;
      message = 0;
      wParam = 77;
    }
  } owner;
  window_->SetHook<&Owner::See>(&owner);
  EXPECT_EQ(SendMessageA(window_->Handle(), WM_GETTEXTLENGTH, 0, 0), 77);
}

}  // namespace
