#include "gallery/OpenedSamples.h"

#include <commctrl.h>

#include "toolkit/TmyApplication.h"
#include "toolkit/TmyCalendar.h"
#include "toolkit/TmyComboBox2.h"
#include "toolkit/TmyMsgBox.h"
#include "toolkit/TmyPopupMenu.h"

namespace {

constexpr uintptr_t kLoopTimer = 1;
constexpr UINT kOpenMilliseconds = 300;  // for what opens with a loop of its own, until it is painted

// What drops down has the mouse. The cursor is over the part at these per cent of it.
Picture TakeDrop(TmyDropPanel& field, POINT hot) {
  field.DropDown(true);
  const HWND drop = GetCapture();
  RECT area = {};
  GetClientRect(drop, &area);
  SendMessageA(drop, WM_MOUSEMOVE, 0, MAKELPARAM(area.right * hot.x / 100, area.bottom * hot.y / 100));
  Picture picture(drop);
  field.DropDown(false);
  return picture;
}

Picture TakeList(SampleCell& cell) {
  auto* list = new TmyComboBox2(cell);
  for (int i = 0; i < 40; ++i) list->Add(i % 2 == 0 ? "Aurora" : "Boreal Broadcasting");
  list->SetSelection(1);
  list->SetBounds(0, 0, cell.ClientWidth(), cell.ClientHeight());
  list->Show(true);
  return TakeDrop(*list, {30, 28});
}

Picture TakeMonth(SampleCell& cell) {
  auto* calendar = new TmyCalendar(cell);
  calendar->SetValue({2026, 3, 0, 29, 0, 0, 0, 0});
  calendar->SetBounds(0, 0, cell.ClientWidth(), cell.ClientHeight());
  calendar->Show(true);
  return TakeDrop(*calendar, {50, 50});
}

// Runs inside the loop of a box or a menu.
class AmidLoop : public TmyPanel {
 public:
  AmidLoop(TmyComponent& parent, void (*act)(AmidLoop& loop)) : TmyPanel(parent, 0), act_(act) {
    SetTimer(Handle(), kLoopTimer, kOpenMilliseconds, nullptr);
  }
  void Timer(uintptr_t) override {
    KillTimer(Handle(), kLoopTimer);
    act_(*this);
  }
  Picture End() {
    Destroy();
    return std::move(picture);
  }

  TmyMsgBox* box = nullptr;  // belongs to its window
  Picture picture;

 private:
  void (*act_)(AmidLoop& loop);
};

Picture TakeBox(SampleCell& cell) {
  auto* loop = new AmidLoop(cell, [](AmidLoop& amid) {
    amid.picture = Picture(amid.box->Handle());
    amid.box->EndModal(1);
  });
  loop->box =
      new TmyMsgBox(*cell.TopLevel(), "Delete task", "Are you sure you want to delete this task?", {"Yes", "No"});
  // NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDeleteLeaks): the loop belongs to its window
  if (loop->box->ShowModal(cell.TopLevel()) == 0) return {};
  loop->box->Destroy();
  return loop->End();
}

Picture TakeMenu(SampleCell& cell) {
  TmyPopupMenu popup;
  TmyMenu& menu = popup.Menu();
  menu.AddItem("&UTC time").Check(true);
  menu.AddItem("&Export items to CSV").Enable(false);
  menu.AddSeparator();
  menu.AddItem("Show &details");
  menu.AddSubmenu("HFCC &databases").AddItem("a26.zip");
  auto* loop = new AmidLoop(cell, [](AmidLoop& amid) {
    amid.picture = Picture(FindWindowA("#32768", nullptr), true);
    EndMenu();
  });
  POINT at = {};
  cell.GetScreenOrigin(at);
  for (int i = 0; i < 3; ++i) PostMessageA(cell.TopLevel()->Handle(), WM_KEYDOWN, VK_DOWN, 0);
  popup.Popup(*cell.TopLevel(), at.x, at.y);
  return loop->End();
}

// The tip is shown at the cursor, wherever the user left it.
Picture TakeTip(SampleCell& cell) {
  auto& button = cell.Draw<Tmy_Btn>("Cursor on it");
  button.SetBounds(0, 0, cell.ClientWidth(), cell.ClientHeight());
  POINT former = {}, at = {};
  GetCursorPos(&former);
  cell.GetScreenOrigin(at);
  SetCursorPos(at.x + Theme().Step(), at.y + Theme().Step());
  TmyApplication::Get().ShowToolTip(button, "What a click does");
  Picture picture(FindWindowA(TOOLTIPS_CLASSA, nullptr), true);
  TmyApplication::Get().HideToolTip();
  SetCursorPos(former.x, former.y);
  return picture;
}

constexpr OpenedSample kOpened[] = {
    {"TmyComboBox2, its list", 0, false, TakeList},
    {"TmyCalendar, its month", 1, false, TakeMonth},
    {"TmyPopupMenu, TmyMenu", 2, false, TakeMenu},
    {"TmyMsgBox", 2, true, TakeBox},
    {"TmyToolTip", 2, false, TakeTip},
};

}  // namespace

std::span<const OpenedSample> OpenedSamples() {
  return kOpened;
}
