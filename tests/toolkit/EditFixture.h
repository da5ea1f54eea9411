// Marlux 3. What the tests of all edit fields share: a field in a window, and what the field told.
#pragma once

#include "tests/toolkit/ControlFixture.h"
#include "toolkit/ClipboardText.h"
#include "toolkit/TmyEdit.h"

class EditFixture : public ControlFixture {
 protected:
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
  static void Retype(TmyEdit& edit, std::string_view text) {
    edit.SelectAll();
    Input::Type(edit, text);
  }
  static void Paste(const TmyComponent& edit, const char* text) {
    ASSERT_TRUE(SetClipboardText(edit.Handle(), text));
    SendMessageA(edit.Handle(), WM_PASTE, 0, 0);
  }
  // As "[begin,end)".
  static std::pair<int, int> Selection(const TmyComponent& edit) {
    DWORD begin = 0, end = 0;
    SendMessageA(edit.Handle(), EM_GETSEL, reinterpret_cast<WPARAM>(&begin), reinterpret_cast<LPARAM>(&end));
    return {begin, end};
  }

  void Changed(TmyEdit&) { ++changes_; }
  void Committed(TmyEdit& edit) {
    committedText_ = edit.Text();
    Tell();
  }

  int changes_ = 0;
  TmyString committedText_;
};
