// Marlux 3. What the tests of the scheduler's windows share: an owner with tasks, zone and host, and a user who acts in
// a dialog once it is open.
#pragma once

#include <functional>

#include "scheduler/SchedulerOwner.h"
#include "scheduler/TmxSchedulerWindow.h"
#include "tests/support/FakeHost.h"
#include "tests/toolkit/ControlFixture.h"

class SchedulerFixture : public testing::Test, public SchedulerOwner {
 public:
  SchedulerFixture() {
    scheduler_ = new TmxSchedulerWindow(*this);
    scheduler_->Open();
  }
  ~SchedulerFixture() override { window_->Destroy(); }

  TmyTypeList<TmxTask>& Tasks() noexcept override { return tasks_; }
  const TmxTask* RunningTask() const noexcept override { return running_; }
  bool IsUtc() const noexcept override { return utc_; }
  const HostInfo& Host() const noexcept override { return host_; }
  uint32_t CurrentFrequencyRaw() noexcept override { return 9420000; }
  TmyComponent& Window() noexcept override { return *window_; }

  static TmyComponent* Dialog(const char* caption) {
    TmyWindowBase* window = TmyWindowBase::FromHandle(FindWindowA(nullptr, caption));
    return window ? window->AsComponent() : nullptr;
  }
  // Does `open`, which runs a dialog, and in that dialog what the user does.
  static void In(const char* caption, const std::function<void()>& open, std::function<void(TmyComponent&)> act) {
    act_ = std::move(act), caption_ = caption, acted_ = false;
    SetTimer(nullptr, 0, 10, Act);
    open();
    EXPECT_TRUE(acted_) << caption;
  }
  // Of a drawn control, by its place among those of its kind.
  template <class Control>
  static void Click(TmyComponent& window, int index) {
    for (TmyControl* control = window.FirstControl(); control; control = control->NextControl()) {
      if (!dynamic_cast<Control*>(control) || index-- > 0) continue;
      return Input::Click(window, control->Bounds().left + 3, control->Bounds().top + control->Height() / 2);
    }
    FAIL();
  }

  TmyTypeList<TmxTask> tasks_;
  HostInfo host_ = HostInfo::Copy(HostBlockOfReceiver().data());  // up to 30 MHz, modes 1 and 9
  const TmxTask* running_ = nullptr;
  bool utc_ = true;
  TmyComponent* window_ = new TmyComponent("Owner", WS_POPUP | WS_VISIBLE, 0, 0, 0, 300, 200, nullptr);
  TmxSchedulerWindow* scheduler_;

 private:
  static void CALLBACK Act(HWND, UINT, UINT_PTR id, DWORD) {
    TmyComponent* dialog = Dialog(caption_);
    if (!dialog || !dialog->IsInModalLoop()) return;
    KillTimer(nullptr, id);
    acted_ = true;
    act_(*dialog);
  }
  static inline std::function<void(TmyComponent&)> act_;
  static inline const char* caption_;
  static inline bool acted_;
};
