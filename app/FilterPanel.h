// Marlux 3. The panel above the grid: choice of the database, auto-tuning, and the filters by frequency, time and four
// texts. It holds no filter state of its own: Choices() reads what its controls show.
//
// The controls stand in groups that flow into as many rows as the window's width needs; rows for which the window has
// no height are scrolled to.
#pragma once

#include <array>
#include <vector>

#include "app/FilterRecord.h"
#include "app/FilterText.h"
#include "app/FlowLayout.h"
#include "toolkit/TmyComboBox2.h"
#include "toolkit/TmyFrequencyEdit.h"
#include "toolkit/TmyScrollPanel.h"
#include "toolkit/TmyTimeEdit.h"
#include "toolkit/TmyUpDown.h"
#include "toolkit/Tmy_CheckBox.h"
#include "toolkit/Tmy_Label.h"
#include "toolkit/Tmy_OptionButton.h"

class FilterPanel : public TmyScrollPanel {
 public:
  static constexpr uint32_t kTextFilters = 4;

  explicit FilterPanel(TmyComponent& parent);

  // Something that filters may be another. The flag: only a filter that differs needs a refresh.
  TmyEvent<bool> changed;
  TmyEvent<> autoTuningChanged;  // by the user

  // What the controls ask for; time zone and current time are the caller's to fill in. The texts point into the panel
  // and hold until its next change.
  [[nodiscard]] FilterChoices Choices() const;
  [[nodiscard]] bool FollowsClock() const;  // the time filter stands on the current time
  [[nodiscard]] bool IsAutoTuning() const { return autoTuning_.IsChecked(); }
  void SetAutoTuning(bool on) { autoTuning_.SetChecked(on); }  // raises nothing
  [[nodiscard]] bool ShowsHfcc() const { return hfcc_.IsChecked(); }
  TmyEvent<> databaseChanged;      // by the user
  void ChooseDatabase(bool hfcc);  // raises nothing; names the text filters as the database does
  // Replaces the choices of a text filter (0 to 3). A selected choice that is still there stays selected.
  void SetTexts(uint32_t filter, std::vector<FilterText> texts);

  [[nodiscard]] int ContentHeight(int width) const override;  // pixels, all rows
  [[nodiscard]] int LeastHeight() const;                      // one row

  void ThemeChanged() override;
  void Paint(HDC dc) override;

 protected:
  void PlaceContent(int width, int top) override;

 private:
  struct Member {
    TmyControl* control;
    int width;
    int gap;  // to the one before it
  };
  struct Group {
    std::vector<Member> members;
    int width = 0;
    bool startsRow = false;
  };
  struct TextFilter {
    TextFilter(TmyComponent& owner, const char* caption);
    Tmy_CheckBox box;
    TmyComboBox2* list;  // belongs to its window
    std::vector<FilterText> choices;
  };

  void BuildGroups();
  static Group& AddGroup(std::vector<Group>& groups, bool startsRow);
  void AddMember(Group& group, TmyControl& control, int width, int gap);
  void BindEvents();
  void SetInitialValues();
  [[nodiscard]] std::vector<FlowPlace> Flow(int width) const;
  void PlaceGroup(const Group& group, int left, int top);
  void EnableByBoxes();

  void BoxClicked(Tmy_CheckBox& box);
  void OptionClicked(Tmy_OptionButton& option);
  void EditChanged(TmyEdit& edit);
  void EditCommitted(TmyEdit& edit);
  void TextChosen(TmyComboBox2& list);
  void SwitchFrequencies(bool around);
  void ForgetTexts();

  // In the order in which Tab walks through them.
  Tmy_OptionButton eibi_;
  Tmy_OptionButton hfcc_;
  Tmy_CheckBox autoTuning_;
  Tmy_CheckBox frequency_;
  Tmy_OptionButton around_;
  Tmy_OptionButton between_;
  TmyFrequencyEdit* first_;  // the edits and their buttons belong to their windows
  TmyUpDown* firstUpDown_;
  Tmy_Label frequencyLabel_;
  TmyFrequencyEdit* second_;
  TmyUpDown* secondUpDown_;
  Tmy_Label unit_;
  Tmy_CheckBox time_;
  Tmy_OptionButton utcTime_;
  Tmy_OptionButton fromTime_;
  TmyTimeEdit* from_;
  Tmy_Label timeLabel_;
  TmyTimeEdit* to_;
  std::array<std::unique_ptr<TextFilter>, kTextFilters> texts_;
  std::vector<Group> groups_;
  bool namedForHfcc_ = false;  // the database that the text filters are named for
};
