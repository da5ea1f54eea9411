#include "app/TmxOptionsDialog.h"

#include <algorithm>

#include "toolkit/ListKeys.h"
#include "toolkit/TmyApplication.h"

namespace {

constexpr DWORD kStyle = WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | WS_TABSTOP | WS_CLIPCHILDREN;
constexpr DWORD kExtendedStyle = WS_EX_DLGMODALFRAME | WS_EX_CONTROLPARENT;
constexpr int kListWidth = 170;  // at 96 dpi
constexpr int kListRows = 14;
constexpr int kLeastListWidth = 100;
constexpr int kLeastListRows = 4;

int Margin() {
  return 2 * Theme().Step();
}

void Fill(TmyListBox& list, const std::vector<ColumnField>& fields, int32_t selection) {
  const int64_t top = list.ScrollBar().Position();
  list.BeginUpdate();
  list.Clear();
  for (const ColumnField& field : fields) list.Add(field.title, field.index);
  list.EndUpdate();
  list.ScrollBar().SetPosition(top);
  list.SetSelection(std::min(selection, list.Count() - 1));
}

}  // namespace

bool TmxOptionsDialog::Choose(TmyComponent& owner, const std::vector<ColumnField>& fields,
                              std::vector<uint32_t>& selected) {
  const Hold hold;
  auto* dialog = new TmxOptionsDialog(owner, fields, selected);
  const int result = dialog->ShowModal(&owner);
  if (result == kConfirmed) selected = dialog->choice_.SelectedIndices();
  dialog->Destroy();
  return result == kConfirmed;
}

TmxOptionsDialog::TmxOptionsDialog(TmyComponent& owner, const std::vector<ColumnField>& fields,
                                   const std::vector<uint32_t>& selected)
    : TmyDialog("HFCC options", kStyle, kExtendedStyle, owner),
      choice_(fields, selected),
      text_(*this, "Select columns to display in the HFCC table"),
      availableLabel_(*this, "Available columns"),
      selectedLabel_(*this, "Selected columns"),
      available_(new TmyListBox(*this, WS_VISIBLE | WS_TABSTOP)),
      availableSide_(new TmyInvisiblePanel(*this)),
      add_(*availableSide_, ">"),
      remove_(*availableSide_, "<"),
      splitter_(new TmySplitter2(*this)),
      selected_(new TmyListBox(*this, WS_VISIBLE | WS_TABSTOP)),
      selectedSide_(new TmyInvisiblePanel(*this)),
      up_(*selectedSide_, "Up"),
      down_(*selectedSide_, "Down"),
      ok_(*this, "OK"),
      cancel_(*this, "Cancel") {
  SetKeyPreview(true);
  ok_.SetDefault(true);
  add_.SetToolTip("Show the column");
  remove_.SetToolTip("Do not show the column");
  BindEvents();
  ShowLists(0, 0);
  FitSize(owner);
}

void TmxOptionsDialog::BindEvents() {
  for (Tmy_Btn* button : {&add_, &remove_, &up_, &down_, &ok_, &cancel_}) {
    button->clicked.Bind<&TmxOptionsDialog::Clicked>(this);
  }
  for (TmyListBox* list : {available_, selected_}) {
    list->selected.Bind<&TmxOptionsDialog::ListSelected>(this);
    list->activated.Bind<&TmxOptionsDialog::ListActivated>(this);
  }
  splitter_->moved.Bind<&TmxOptionsDialog::SplitterMoved>(this);
}

int TmxOptionsDialog::SideWidth() const {
  int width = 0;
  for (const Tmy_Btn* button : {&add_, &remove_, &up_, &down_}) width = std::max(width, button->PreferredWidth());
  return width;
}

// From the top: the text, the lists' titles, the lists, OK and Cancel.
SIZE TmxOptionsDialog::SizeFor(int listWidth, int rows) const {
  const int step = Theme().Step();
  const int lists = 2 * (listWidth + step + SideWidth()) + TmySplitter::Thickness();
  const int width = std::max(lists, text_.PreferredWidth()) + 2 * Margin();
  const int height = 2 * Theme().RowHeight() + step + rows * Theme().RowHeight() + 2 + Theme().FieldHeight();
  RECT frame = {0, 0, width, height + 3 * Margin() + step / 2};
  AdjustWindowRectEx(&frame, kStyle, FALSE, kExtendedStyle);
  return {frame.right - frame.left, frame.bottom - frame.top};
}

void TmxOptionsDialog::FitSize(const TmyComponent& around) {
  fittedHeight_ = Theme().TextHeight();
  PlaceCentred(around, SizeFor(Theme().Scaled(kListWidth), kListRows));
}

void TmxOptionsDialog::Realign() {
  const int step = Theme().Step();
  const int row = Theme().RowHeight();
  const int beside = SideWidth() + step;  // of each list
  const int buttonHeight = Theme().FieldHeight();
  const int bottom = ClientHeight() - Margin() - buttonHeight;
  text_.SetBounds(Margin(), Margin(), ClientWidth() - 2 * Margin(), row);
  const int titles = Margin() + row + step;
  const int top = titles + row + step / 2;
  const int listHeight = std::max(0, bottom - Margin() - top);
  Divide({Margin(), top, ClientWidth() - Margin(), top + listHeight}, Theme().Scaled(kLeastListWidth) + beside);
  const RECT first = splitter_->First(), second = splitter_->Second();
  const int firstWidth = std::max(0, static_cast<int>(first.right - first.left) - beside);
  const int secondWidth = std::max(0, static_cast<int>(second.right - second.left) - beside);
  availableLabel_.SetBounds(first.left, titles, firstWidth, row);
  selectedLabel_.SetBounds(second.left, titles, secondWidth, row);
  available_->SetBounds(first.left, top, firstWidth, listHeight);
  selected_->SetBounds(second.left, top, secondWidth, listHeight);
  PlaceButtons(first.right - SideWidth(), top, *availableSide_, add_, remove_);
  PlaceButtons(second.right - SideWidth(), top, *selectedSide_, up_, down_);
  const int cancelLeft = ClientWidth() - Margin() - cancel_.PreferredWidth();
  cancel_.SetBounds(cancelLeft, bottom, cancel_.PreferredWidth(), buttonHeight);
  ok_.SetBounds(cancelLeft - step - ok_.PreferredWidth(), bottom, ok_.PreferredWidth(), buttonHeight);
}

// In halves until the user wants it otherwise.
void TmxOptionsDialog::Divide(const RECT& area, int least) {
  splitter_->SetLeast(least, least);
  if (!isDivided_) splitter_->SetLength((area.right - area.left - TmySplitter::Thickness()) / 2);
  splitter_->Place(area);
}

void TmxOptionsDialog::SplitterMoved(TmySplitter&) {
  isDivided_ = true;
  Realign();
}

void TmxOptionsDialog::PlaceButtons(int left, int top, TmyInvisiblePanel& side, Tmy_Btn& upper, Tmy_Btn& lower) {
  const int height = Theme().FieldHeight();
  const int second = height + Theme().Step();
  side.SetBounds(left, top, SideWidth(), second + height);
  upper.SetBounds(0, 0, SideWidth(), height);
  lower.SetBounds(0, second, SideWidth(), height);
}

void TmxOptionsDialog::ThemeChanged() {
  TmyDialog::ThemeChanged();
  if (fittedHeight_ != Theme().TextHeight()) FitSize(*this);
}

void TmxOptionsDialog::ShowLists(int32_t available, int32_t selected) {
  Fill(*available_, choice_.Available(), available);
  Fill(*selected_, choice_.Selected(), selected);
  EnableButtons();
}

void TmxOptionsDialog::EnableButtons() {
  const int32_t selected = selected_->Selection();
  add_.Enable(choice_.CanSelect(available_->Selection()));
  remove_.Enable(choice_.CanDeselect(selected));
  up_.Enable(choice_.CanMove(selected, -1));
  down_.Enable(choice_.CanMove(selected, 1));
  ok_.Enable(choice_.IsUsable());
}

void TmxOptionsDialog::Add() {
  const int32_t from = available_->Selection();
  const int32_t to = choice_.Select(from);
  if (to != ColumnChoice::kNowhere) ShowLists(from, to);
}

void TmxOptionsDialog::Remove() {
  const int32_t from = selected_->Selection();
  const int32_t to = choice_.Deselect(from);
  if (to != ColumnChoice::kNowhere) ShowLists(to, from);
}

void TmxOptionsDialog::Move(int32_t by) {
  const int32_t to = choice_.Move(selected_->Selection(), by);
  if (to != ColumnChoice::kNowhere) ShowLists(available_->Selection(), to);
}

void TmxOptionsDialog::ListSelected(TmyListBox&) {
  EnableButtons();
}

void TmxOptionsDialog::ListActivated(TmyListBox& list) {
  &list == available_ ? Add() : Remove();
}

void TmxOptionsDialog::Clicked(Tmy_Btn& button) {
  if (&button == &add_) Add();
  if (&button == &remove_) Remove();
  if (&button == &up_) Move(-1);
  if (&button == &down_) Move(1);
  if (&button == &ok_) EndModal(kConfirmed);
  if (&button == &cancel_) EndModal(kCancelled);
}

// Before the lists see the keys: Enter there would be a double click.
void TmxOptionsDialog::PreviewKey(TmyComponent& sender, uint32_t& key, LPARAM flags) {
  const bool withAlt = ListKeys::IsWithAlt(flags);
  const bool inSelected = &sender == selected_;
  if (key == VK_RETURN && !withAlt) {
    const TmyControl* button = sender.FocusedControl();
    if (button && button->IsEnabled()) return;
    if (!ListKeys::IsRepeated(flags)) Confirm();  // not the Enter that opened the dialog
  } else if (key == VK_INSERT && &sender == available_) {
    Add();
  } else if (key == VK_DELETE && inSelected) {
    Remove();
  } else if (withAlt && inSelected && (key == VK_UP || key == VK_DOWN)) {
    Move(key == VK_UP ? -1 : 1);
  } else {
    return;
  }
  key = 0;
}

void TmxOptionsDialog::Confirm() {
  ok_.Press();
}

void TmxOptionsDialog::Escape() {
  EndModal(kCancelled);
}

LRESULT TmxOptionsDialog::WndProc(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_GETMINMAXINFO && fittedHeight_ > 0) {
    const SIZE least = SizeFor(Theme().Scaled(kLeastListWidth), kLeastListRows);
    reinterpret_cast<MINMAXINFO*>(lParam)->ptMinTrackSize = {least.cx, least.cy};
    return 0;
  }
  return TmyDialog::WndProc(message, wParam, lParam);
}
