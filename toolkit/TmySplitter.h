// Marlux 3. A bar between two parts of a window that the user drags to give one of them more room. TmySplitter lies
// between an upper and a lower part, TmySplitter2 between a left and a right one.
//
//   splitter_ = new TmySplitter(*this, SplitterGeometry::Keeps::kSecond);   // belongs to its window
//   splitter_->SetLeast(theme.Scaled(100), theme.Scaled(40));
//   splitter_->SetLength(theme.Scaled(60));              // of the part that keeps its length: here the lower one
//   splitter_->moved.Bind<&MyWindow::SplitterMoved>(this);   // calls Realign()
//   ...
//   splitter_->Place({0, 0, ClientWidth(), ClientHeight()});   // in Realign
//   SetBounds of the two parts to splitter_->First() and splitter_->Second()
//
// Keys: Up and Down, or Left and Right, move the bar by a step; it can be reached with Tab.
#pragma once

#include "toolkit/SplitterGeometry.h"
#include "toolkit/TmyPanel.h"

class TmySplitter : public TmyPanel {
 public:
  explicit TmySplitter(TmyComponent& parent, SplitterGeometry::Keeps keeps = SplitterGeometry::Keeps::kFirst);

  TmyEvent<TmySplitter&> moved;  // by the user: the parts want their new bounds

  void SetLeast(int first, int second) noexcept;
  // Pixels of the part that keeps its length, as wanted; the part may be smaller while there is no room for it.
  void SetLength(int length) noexcept { wanted_ = length; }
  [[nodiscard]] int Length() const noexcept { return wanted_; }

  void Place(const RECT& area);  // divides it and moves the bar to its place there
  [[nodiscard]] RECT First() const noexcept;
  [[nodiscard]] RECT Second() const noexcept;
  [[nodiscard]] static int Thickness();

  void Paint(HDC dc) override;
  void MouseDown(uint32_t keys, int x, int y) override;
  void MouseMove(uint32_t keys, int x, int y) override;
  void MouseUp(uint32_t keys, int x, int y) override;
  bool KeyDown(uint32_t key, LPARAM flags) override;
  void FocusChanged(bool focused) override;
  [[nodiscard]] HCURSOR GetCursor() const override;
  LRESULT WndProc(UINT message, WPARAM wParam, LPARAM lParam) override;

 protected:
  enum class Direction { kUpDown, kLeftRight };
  TmySplitter(TmyComponent& parent, SplitterGeometry::Keeps keeps, Direction direction);

 private:
  [[nodiscard]] int Along(int x, int y) const noexcept { return direction_ == Direction::kUpDown ? y : x; }
  [[nodiscard]] SplitterGeometry::Space Space() const;
  [[nodiscard]] RECT Stretch(int from, int to) const noexcept;  // of the area
  void MoveBy(int distance);                                    // the last thing: we may be gone afterwards
  void End();

  Direction direction_;
  SplitterGeometry::Keeps keeps_;
  RECT area_ = {};
  SplitterGeometry::Parts parts_;
  int wanted_ = 0;
  int firstLeast_ = 0;
  int secondLeast_ = 0;
  int grip_ = 0;  // dragging: from the bar's begin to the cursor
  bool dragging_ = false;
  bool hot_ = false;
};

class TmySplitter2 : public TmySplitter {
 public:
  explicit TmySplitter2(TmyComponent& parent, SplitterGeometry::Keeps keeps = SplitterGeometry::Keeps::kFirst)
      : TmySplitter(parent, keeps, Direction::kLeftRight) {}
};
