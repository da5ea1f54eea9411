// Marlux 3. A drawn option button. Those of one owner that follow each other (whatever else stands between them) with
// the same group number form a group, of which at most one is checked.
//
//   Tmy_OptionButton around(panel, "Around", 1), between(panel, "Between", 1);
//
// A click or Space chooses; the arrow keys move within the group and choose. A group is one stop for Tab.
#pragma once

#include <vector>

#include "toolkit/Tmy_Clickable.h"

class Tmy_OptionButton : public Tmy_Clickable {
 public:
  Tmy_OptionButton(TmyComponent& owner, const TmyString& caption, uint32_t group)
      : Tmy_Clickable(owner, caption), group_(group) {}

  TmyEvent<Tmy_OptionButton&> clicked;  // by the user, also when it was chosen before

  [[nodiscard]] bool IsChecked() const noexcept { return checked_; }
  void SetChecked(bool checked);  // unchecks the others of the group; raises nothing

  bool KeyDown(uint32_t key, LPARAM flags) override;
  [[nodiscard]] bool CanFocus() const override;
  void Paint(HDC dc) override;
  [[nodiscard]] SIZE PreferredSize() const override { return MarkedSize(); }

 protected:
  void Click() override;

 private:
  [[nodiscard]] std::vector<Tmy_OptionButton*> Group() const;  // this one among them; none of them owned
  [[nodiscard]] bool MayBeChosen() const { return IsEnabled() && IsVisible(); }

  uint32_t group_;
  bool checked_ = false;
};
