// Marlux 3. A user of this process's windows, who clicks on captions and acts in a dialog once it is open.
#pragma once

#include "tests/toolkit/ControlFixture.h"
#include "toolkit/Tmy_Clickable.h"

inline void ClickOn(TmyComponent& window, std::string_view caption) {
  TmyControl* control = window.FirstControl();
  const auto isIt = [=](const Tmy_Clickable* each) { return each && each->Caption().View() == caption; };
  while (control && !isIt(dynamic_cast<Tmy_Clickable*>(control))) control = control->NextControl();
  ASSERT_NE(control, nullptr) << caption;
  Input::Click(window, control->Bounds().left + 5, control->Bounds().top + control->Height() / 2);
}

class InDialog {
 public:
  // Does `open`, which runs the dialog's loop, and in that dialog what the user does.
  InDialog(const char* caption, const std::function<void()>& open, std::function<void(TmyComponent&)> act) {
    act_ = std::move(act), caption_ = caption, acted_ = false;
    SetTimer(nullptr, 0, 10, Act);
    open();
    EXPECT_TRUE(acted_) << caption;
  }

 private:
  static void CALLBACK Act(HWND, UINT, UINT_PTR id, DWORD) {
    TmyWindowBase* const window = TmyWindowBase::FromHandle(FindWindowA(nullptr, caption_));
    TmyComponent* const dialog = window ? window->AsComponent() : nullptr;
    if (!dialog || !dialog->IsInModalLoop()) return;
    KillTimer(nullptr, id);
    acted_ = true;
    act_(*dialog);
  }
  static inline std::function<void(TmyComponent&)> act_;
  static inline const char* caption_;
  static inline bool acted_;
};
