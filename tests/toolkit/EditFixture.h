// Marlux 3. What the tests of all edit fields share: a window, a field in it, and what the field told.
#pragma once

#include <gtest/gtest.h>

#include "tests/toolkit/InputWindow.h"
#include "toolkit/ClipboardText.h"
#include "toolkit/TmyEdit.h"

class EditWindow : public InputWindow {
 public:
  void Escape() override { ++escapes; }
  void Confirm() override { ++confirms; }

  int escapes = 0;
  int confirms = 0;
};

class EditFixture : public testing::Test {
 protected:
  ~EditFixture() override {
    if (window_) window_->Destroy();
  }

  template <class Edit, class... Args>
  Edit* Make(Args... args) {
    auto* edit = new Edit(*window_, args...);
    edit->changed.template Bind<&EditFixture::Changed>(this);
    edit->committed.template Bind<&EditFixture::Committed>(this);
    edit->SetBounds(10, 10, 120, TmyApplication::Get().Theme().FieldHeight());
    edit->Show(true);
    edit->TakeFocus();
    EXPECT_EQ(GetFocus(), edit->Handle()) << "no focus: is there a display?";
    return edit;
  }

  static void Type(const TmyComponent& edit, std::string_view text) {
    for (const char c : text) SendMessageA(edit.Handle(), WM_CHAR, static_cast<uint8_t>(c), 1);
  }
  static void Paste(const TmyComponent& edit, const char* text) {
    ASSERT_TRUE(SetClipboardText(edit.Handle(), text));
    SendMessageA(edit.Handle(), WM_PASTE, 0, 0);
  }
  static void Pump() {
    MSG message;
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageA(&message);
  }
  // As "[begin,end)".
  static std::pair<int, int> Selection(const TmyComponent& edit) {
    DWORD begin = 0, end = 0;
    SendMessageA(edit.Handle(), EM_GETSEL, reinterpret_cast<WPARAM>(&begin), reinterpret_cast<LPARAM>(&end));
    return {begin, end};
  }

  void Changed(TmyEdit&) { ++changes_; }
  void Committed(TmyEdit& edit) {
    ++commits_;
    committedText_ = edit.Text();
    if (!destroyInCommit_) return;
    window_->Destroy();
    window_ = nullptr;
  }

  EditWindow* window_ = new EditWindow;  // deleted by its window
  int changes_ = 0;
  int commits_ = 0;
  bool destroyInCommit_ = false;
  TmyString committedText_;
};
