// Marlux 3. What the tests of all edit fields share: a field in a window, and what the field told.
#pragma once

#include "tests/toolkit/ControlFixture.h"
#include "toolkit/ClipboardText.h"
#include "toolkit/TmyEdit.h"

struct EditFixture : ControlFixture {
  template <class Edit, class... Args>
  Edit* Make(Args... args) {
    auto* edit = new Edit(*window_, args...);
    edit->changed.template Bind<&EditFixture::Changed>(this);
    Listen(edit->committed);
    edit->SetBounds(10, 10, 120, TmyApplication::Get().Theme().FieldHeight());
    edit->Show(true);
    edit->TakeFocus();
    EXPECT_EQ(GetFocus(), edit->Handle()) << "no focus: is there a display?";
    return edit;
  }
  static void Paste(TmyEdit& edit, const char* text) {
    edit.SelectAll();
    ASSERT_TRUE(SetClipboardText(edit.Handle(), text));
    SendMessageA(edit.Handle(), WM_PASTE, 0, 0);
  }
  // As "[begin,end)".
  static std::pair<int, int> Selection(const TmyComponent& edit) {
    const LRESULT selection = SendMessageA(edit.Handle(), EM_GETSEL, 0, 0);
    return {LOWORD(selection), HIWORD(selection)};
  }
  void Changed(TmyEdit&) { ++changes_; }

  int changes_ = 0;
};
