#include "toolkit/TmyListBox.h"

#include <algorithm>

#include "foundation/Clock.h"
#include "toolkit/ListKeys.h"
#include "toolkit/ThemeDraw.h"
#include "toolkit/TmyApplication.h"

namespace {

constexpr int kBorder = 1;
constexpr int kTextInset = 7;  // at 96 dpi

}  // namespace

TmyListBox::TmyListBox(TmyComponent& parent, DWORD style)
    : TmyPanel(parent, style), bar_(new TmyScrollBar(*this, TmyScrollBar::Direction::kVertical)) {
  bar_->scrolled.Bind<&TmyListBox::BarScrolled>(this);
}

int TmyListBox::TextInset() {
  return Theme().Scaled(kTextInset);
}

void TmyListBox::Clear() {
  own_.Clear();
  selection_ = -1;
  hot_ = -1;
  search_.Reset();
  bar_->SetPosition(0);
  ItemsChanged();
}

void TmyListBox::Add(const TmyString& text, uintptr_t data) {
  own_.Add(std::make_unique<TmyLBitem>(TmyLBitem{text, data}));
  ItemsChanged();
}

void TmyListBox::EndUpdate() {
  if (updates_ > 0) --updates_;
  ItemsChanged();
}

void TmyListBox::ShowItemsOf(const TmyLBitemList& items) {
  items_ = &items;
  ItemsChanged();
}

void TmyListBox::ItemsChanged() {
  if (updates_ > 0) return;
  if (selection_ >= Count()) selection_ = -1;
  if (hot_ >= Count()) hot_ = -1;
  Realign();
  Repaint();
}

void TmyListBox::SetSelection(int32_t index) {
  if (index < 0 || index >= Count()) index = -1;
  if (index != selection_) {
    RepaintItem(selection_);
    selection_ = index;
    RepaintItem(selection_);
  }
  BringIntoView(selection_);
}

TmyString TmyListBox::SelectedText() const {
  return selection_ >= 0 && selection_ < Count() ? items_->Get(static_cast<uint32_t>(selection_))->text : TmyString();
}

uintptr_t TmyListBox::ItemData(int32_t index) const noexcept {
  return index >= 0 && index < Count() ? items_->Get(static_cast<uint32_t>(index))->data : 0;
}

int32_t TmyListBox::FindText(const TmyString& text) const noexcept {
  return ListSearch::FindExact(*items_, text.View());
}

int32_t TmyListBox::TopItem() const noexcept {
  return static_cast<int32_t>(bar_->Position());
}

int32_t TmyListBox::VisibleRows() const {
  return std::max(1, (ClientHeight() - 2 * kBorder) / Theme().RowHeight());
}

int TmyListBox::RowWidth() const {
  return ClientWidth() - 2 * kBorder - (bar_->CanScroll() ? TmyScrollBar::Thickness() : 0);
}

RECT TmyListBox::ItemRect(int32_t index) const {
  const int height = Theme().RowHeight();
  const int top = kBorder + (index - TopItem()) * height;
  return {kBorder, top, kBorder + RowWidth(), top + height};
}

int32_t TmyListBox::ItemAt(int x, int y) const {
  const RECT rows = {kBorder, kBorder, kBorder + RowWidth(), ClientHeight() - kBorder};
  if (!PtInRect(&rows, POINT{x, y})) return -1;
  const int32_t index = TopItem() + (y - kBorder) / Theme().RowHeight();
  return index < Count() ? index : -1;
}

int32_t TmyListBox::RowFor(int y) const {
  const int height = Theme().RowHeight();
  const int row = y < kBorder ? -1 : std::min((y - kBorder) / height, VisibleRows());
  return std::clamp(TopItem() + row, 0, std::max(0, Count() - 1));
}

void TmyListBox::Realign() {
  if (updates_ > 0) return;
  const int thickness = TmyScrollBar::Thickness();
  bar_->SetRange(Count(), VisibleRows());
  bar_->SetBounds(ClientWidth() - kBorder - thickness, kBorder, thickness, std::max(0, ClientHeight() - 2 * kBorder));
  if (bar_->IsVisible() != bar_->CanScroll()) bar_->Show(bar_->CanScroll());
}

void TmyListBox::BringIntoView(int32_t index) {
  if (index < 0) return;
  const int32_t top = TopItem();
  const int32_t rows = VisibleRows();
  const int32_t wanted = index < top ? index : std::max(top, index - rows + 1);
  if (wanted == top) return;
  bar_->SetPosition(wanted);
  Repaint();
}

void TmyListBox::BarScrolled(TmyScrollBar&) {
  SetHot(-1);
  Repaint();
}

void TmyListBox::RepaintItem(int32_t index) {
  if (index < 0 || !IsAlive()) return;
  const RECT row = ItemRect(index);
  InvalidateRect(Handle(), &row, FALSE);
}

void TmyListBox::SetHot(int32_t index) {
  if (index == hot_) return;
  RepaintItem(hot_);
  hot_ = index;
  RepaintItem(hot_);
}

void TmyListBox::SelectByUser(int32_t index) {
  const int32_t before = selection_;
  SetSelection(index);
  if (selection_ != before) selected(*this);
}

void TmyListBox::FocusChanged(bool) {
  Repaint();
}

void TmyListBox::Paint(HDC dc) {
  const TmyTheme::Colors& color = Theme().Color();
  const RECT all = {0, 0, ClientWidth(), ClientHeight()};
  RECT clip = {};
  GetClipBox(dc, &clip);
  ThemeDraw::Fill(dc, clip, IsEnabled() ? color.field : color.surface);
  const int height = Theme().RowHeight();
  const int first = std::max<int>(0, (clip.top - kBorder) / height);
  for (int32_t index = TopItem() + first; index < Count(); ++index) {
    const RECT row = ItemRect(index);
    if (row.top >= clip.bottom) break;
    PaintItem(dc, index, row);
  }
  // A drop-down lies over windows that are as light as itself: its edge has to stand out.
  const COLORREF edge = followsMouse_ ? color.disabled : color.line;
  ThemeDraw::Frame(dc, all, GetFocus() == Handle() ? color.accent : edge);
}

void TmyListBox::PaintItem(HDC dc, int32_t index, const RECT& row) const {
  const TmyTheme::Colors& color = Theme().Color();
  const bool strong = index == selection_ && IsEnabled() && (followsMouse_ || GetFocus() == Handle());
  COLORREF ink = IsEnabled() ? color.text : color.disabled;
  if (strong) {
    ThemeDraw::Fill(dc, row, color.accent);
    ink = color.accentText;
  } else if (index == selection_) {
    ThemeDraw::Fill(dc, row, color.marked);
  } else if (index == hot_ && IsEnabled()) {
    ThemeDraw::Fill(dc, row, color.hot);
  }
  const int inset = TextInset() - kBorder;
  const RECT place = {row.left + inset, row.top, row.right - inset, row.bottom};
  ThemeDraw::Text(dc, place, items_->Get(static_cast<uint32_t>(index))->text.View(), ink, Font());
}

void TmyListBox::MouseDown(uint32_t, int x, int y) {
  const int32_t index = ItemAt(x, y);
  if (index < 0) return;
  dragging_ = true;
  SetHot(-1);
  SelectByUser(index);
}

void TmyListBox::MouseMove(uint32_t keys, int x, int y) {
  POINT screen = {x, y};
  ClientToScreen(Handle(), &screen);
  const bool moved = screen.x != lastMouse_.x || screen.y != lastMouse_.y;
  lastMouse_ = screen;
  if (!moved || Count() == 0) return;
  if (dragging_ && (keys & MK_LBUTTON) != 0) {
    SelectByUser(RowFor(y));
    return;
  }
  dragging_ = false;
  const int32_t index = ItemAt(x, y);
  SetHot(index);
  if (followsMouse_ && index >= 0) SelectByUser(index);
}

void TmyListBox::MouseUp(uint32_t, int x, int y) {
  dragging_ = false;
  if (!followsMouse_ || ItemAt(x, y) < 0) return;
  const Hold hold;
  SelectByUser(ItemAt(x, y));
  if (IsAlive()) activated(*this);
}

void TmyListBox::DoubleClick(int x, int y) {
  if (!followsMouse_ && ItemAt(x, y) >= 0) activated(*this);
}

void TmyListBox::MouseWheel(WPARAM keysAndNotches, TmyComponent* source) {
  if (bar_->CanScroll()) {
    bar_->MouseWheel(keysAndNotches, this);
  } else {
    TmyPanel::MouseWheel(keysAndNotches, source);
  }
}

bool TmyListBox::KeyDown(uint32_t key, LPARAM flags) {
  if (key == VK_RETURN && selection_ >= 0) {
    activated(*this);
    return true;
  }
  const int32_t target = ListKeys::Target(key, flags, selection_, Count(), VisibleRows());
  if (target == ListKeys::kNotAListKey) return TmyPanel::KeyDown(key, flags);
  search_.Reset();
  if (target >= 0) SelectByUser(target);
  return true;
}

void TmyListBox::Char(char& character, LPARAM flags) {
  if (!search_.Type(character, Clock::Ticks())) return TmyPanel::Char(character, flags);
  character = 0;
  const int32_t found = ListSearch::FindPrefix(*items_, search_.Text().View());
  if (found >= 0) SelectByUser(found);
}
