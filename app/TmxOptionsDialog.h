// Marlux 3. "HFCC options": the dialog in which the user chooses the HFCC table's columns and their order.
//
//   if (TmxOptionsDialog::Choose(*this, fields, columns)) ShowColumns(columns);
//
// Keys in the lists: Insert selects an available column, Delete takes a selected one back, Alt+Up and Alt+Down move it;
// Enter confirms unless a button has the focus.
#pragma once

#include <vector>

#include "app/ColumnChoice.h"
#include "toolkit/TmyDialog.h"
#include "toolkit/TmyInvisiblePanel.h"
#include "toolkit/TmyListBox.h"
#include "toolkit/TmySplitter.h"
#include "toolkit/Tmy_Btn.h"
#include "toolkit/Tmy_Label.h"

class TmxOptionsDialog : public TmyDialog {
 public:
  // Shows the dialog and waits. True: the user confirmed, `selected` holds the field indices in their new order, at
  // least one. False: `selected` is as it was; the owner may be gone.
  [[nodiscard]] static bool Choose(TmyComponent& owner, const std::vector<ColumnField>& fields,
                                   std::vector<uint32_t>& selected);

  TmxOptionsDialog(TmyComponent& owner, const std::vector<ColumnField>& fields, const std::vector<uint32_t>& selected);
  [[nodiscard]] const ColumnChoice& Columns() const noexcept { return choice_; }

  void Realign() override;
  void ThemeChanged() override;
  void Confirm() override;
  void Escape() override;
  void PreviewKey(TmyComponent& sender, uint32_t& key, LPARAM flags) override;
  LRESULT WndProc(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  void BindEvents();
  void FitSize(const TmyComponent& around);
  void Divide(const RECT& area, int least);
  void SplitterMoved(TmySplitter& splitter);
  void PlaceButtons(int left, int top, TmyInvisiblePanel& side, Tmy_Btn& upper, Tmy_Btn& lower);
  [[nodiscard]] int SideWidth() const;  // of the buttons beside the lists
  [[nodiscard]] SIZE SizeFor(int listWidth, int rows) const;
  void ShowLists(int32_t available, int32_t selected);
  void EnableButtons();
  void Add();
  void Remove();
  void Move(int32_t by);
  void ListSelected(TmyListBox& list);
  void ListActivated(TmyListBox& list);
  void Clicked(Tmy_Btn& button);

  ColumnChoice choice_;
  Tmy_Label text_;
  Tmy_Label availableLabel_;
  Tmy_Label selectedLabel_;
  // In the order in which Tab walks through them.
  TmyListBox* available_;  // lists and panels belong to their windows
  TmyInvisiblePanel* availableSide_;
  Tmy_Btn add_;
  Tmy_Btn remove_;
  TmySplitter2* splitter_;  // between the two sides
  TmyListBox* selected_;
  TmyInvisiblePanel* selectedSide_;
  Tmy_Btn up_;
  Tmy_Btn down_;
  Tmy_Btn ok_;
  Tmy_Btn cancel_;
  bool isDivided_ = false;  // by the user
  int fittedHeight_ = 0;    // of the theme's text when the dialog was sized
};
