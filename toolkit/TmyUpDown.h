// Marlux 3. Two small buttons beside a number field that step its value up and down, again and again while held; the
// wheel over them does the same. The keyboard's way is the field's own: Up and Down there.
//
//   edit_ = new TmyIntEdit(*this);
//   upDown_ = new TmyUpDown(*this, *edit_);   // belongs to its window, which is the field's
//   upDown_->SetBounds(right of the field, its top, TmyUpDown::PreferredWidth(), its height);
//   upDown_->Show(true);
//
// The field raises its own `changed`. It is enabled together with these buttons: Enable both.
#pragma once

#include "toolkit/TmyIntEdit.h"
#include "toolkit/TmyPanel.h"

class TmyUpDown : public TmyPanel {
 public:
  TmyUpDown(TmyComponent& parent, TmyIntEdit& edit);

  [[nodiscard]] static int PreferredWidth();

  void Paint(HDC dc) override;
  void MouseDown(uint32_t keys, int x, int y) override;
  void MouseMove(uint32_t keys, int x, int y) override;
  void MouseUp(uint32_t keys, int x, int y) override;
  void MouseWheel(WPARAM keysAndNotches, TmyComponent* source) override;
  void Timer(uintptr_t id) override;
  void EnabledChanged() override;
  LRESULT WndProc(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  enum class Half { kNone, kUp, kDown };

  [[nodiscard]] Half HalfAt(int x, int y) const noexcept;
  void PaintHalf(HDC dc, Half half) const;
  void Step(Half half);  // nothing of ours after it
  void SetHot(Half half);
  void End();

  TmyIntEdit* edit_;  // not owned; lives as long as this window
  Half pressed_ = Half::kNone;
  Half hot_ = Half::kNone;
};
