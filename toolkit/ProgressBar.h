// Marlux 3. A bar that fills as work goes on, or runs to and fro while nobody knows how much work there is.
//
//   auto* bar = new ProgressBar(*this);   // belongs to its window
//   bar->SetRange(length);                // 0: unknown, the bar runs
//   bar->SetPosition(received);
//
// It takes no input. Its caption is not drawn: it is what automation and screen readers say of it.
#pragma once

#include "toolkit/TmyPanel.h"

class ProgressBar : public TmyPanel {
 public:
  explicit ProgressBar(TmyComponent& parent);

  // What counts as all of it; a position beyond it is cut when it is drawn.
  void SetRange(uint32_t range);
  void SetPosition(uint32_t position);
  [[nodiscard]] uint32_t Range() const noexcept { return range_; }
  [[nodiscard]] uint32_t Position() const noexcept { return position_; }
  [[nodiscard]] bool IsRunning() const noexcept { return range_ == 0; }
  [[nodiscard]] static int PreferredHeight();

  void Paint(HDC dc) override;
  void Timer(uintptr_t id) override;
  void EnabledChanged() override;
  void ShowChanged(bool visible) override;

 private:
  struct Stretch {
    int left, right;  // pixels of the track
    bool operator==(const Stretch&) const = default;
  };
  [[nodiscard]] Stretch Filled() const;
  void RunWhileUnknown();  // starts or stops the timer
  void RepaintIfMoved();

  uint32_t range_ = 0;
  uint32_t position_ = 0;
  uint32_t step_ = 0;  // of the run to and fro
  Stretch drawn_ = {};
};
