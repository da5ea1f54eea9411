// Marlux 3. A message or question box: a text, and buttons of which one is chosen.
//
//   auto* box = new TmyMsgBox(*this, "Delete task", "Are you sure?", {"Yes", "No"});
//   const int result = box->ShowModal(this);   // 1 for the first button, 2 for the second; -1 closed; 0 see there
//   box->Destroy();
#pragma once

#include <initializer_list>
#include <memory>
#include <vector>

#include "toolkit/TmyDialog.h"
#include "toolkit/TmyLabel.h"
#include "toolkit/Tmy_Btn.h"

class TmyMsgBox : public TmyDialog {
 public:
  // Laid out for its text, in the middle of the owner. Line ends in the text are CR LF or LF. The first button is the
  // one that Enter presses; Escape closes the box.
  TmyMsgBox(TmyComponent& owner, const TmyString& title, const TmyString& text,
            std::initializer_list<const char*> buttons);

  void Enlarge(int widthPercent, int heightPercent);  // of what the text needs, frame included

  void Realign() override;
  void ThemeChanged() override;
  void Confirm() override;
  void Escape() override;

 private:
  void FitSize(const TmyComponent& around);
  [[nodiscard]] int ButtonsWidth() const;
  void Clicked(Tmy_Btn& button);

  TmyLabel* text_;  // belongs to its window
  int widthPercent_ = 100;
  int heightPercent_ = 100;
  std::vector<std::unique_ptr<Tmy_Btn>> buttons_;
};
