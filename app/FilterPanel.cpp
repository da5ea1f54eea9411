#include "app/FilterPanel.h"

#include <algorithm>

#include "toolkit/ThemeDraw.h"
#include "toolkit/TmyApplication.h"

namespace {

enum OptionGroup : uint32_t { kDatabaseGroup = 1, kFrequencyGroup, kTimeGroup };

using Captions = const char * [FilterPanel::kTextFilters];
constexpr Captions kEibiCaptions = {"Station", "Language", "Target", "CIRAF zone"};
constexpr Captions kHfccCaptions = {"Admin", "Location", "Broadcaster", "CIRAF zone"};
using Widths = int[FilterPanel::kTextFilters];  // at 96 dpi
constexpr Widths kEibiWidths = {186, 82, 82, 82};
constexpr Widths kHfccWidths = {120, 112, 112, 66};  // names of countries and places
constexpr int64_t kFirstCentre = 6000000;            // Hz
constexpr int64_t kFirstSpan = 200000;

}  // namespace

FilterPanel::TextFilter::TextFilter(TmyComponent& owner, const char* caption)
    : box(owner, caption), list(new TmyComboBox2(owner)) {}

FilterPanel::FilterPanel(TmyComponent& parent)
    : TmyScrollPanel(parent, WS_VISIBLE | WS_TABSTOP),
      eibi_(*this, "EiBi database", kDatabaseGroup),
      hfcc_(*this, "HFCC database", kDatabaseGroup),
      autoTuning_(*this, "Auto-tuning"),
      frequency_(*this, "Frequency"),
      around_(*this, "Around", kFrequencyGroup),
      between_(*this, "Between", kFrequencyGroup),
      first_(new TmyFrequencyEdit(*this)),
      firstUpDown_(new TmyUpDown(*this, *first_)),
      frequencyLabel_(*this, "span"),
      second_(new TmyFrequencyEdit(*this)),
      secondUpDown_(new TmyUpDown(*this, *second_)),
      unit_(*this, "kHz"),
      time_(*this, "Time"),
      utcTime_(*this, "UTC Time", kTimeGroup),
      fromTime_(*this, "From", kTimeGroup),
      from_(new TmyTimeEdit(*this)),
      timeLabel_(*this, "to"),
      to_(new TmyTimeEdit(*this)) {
  for (uint32_t i = 0; i < kTextFilters; ++i) texts_[i] = std::make_unique<TextFilter>(*this, kEibiCaptions[i]);
  SetInitialValues();
  BindEvents();
  ChooseDatabase(false);
  EnableByBoxes();
}

void FilterPanel::SetInitialValues() {
  around_.SetChecked(true);
  first_->SetValue(kFirstCentre);
  second_->SetValue(kFirstSpan);
  utcTime_.SetChecked(true);
  from_->SetValue(0);
  to_->SetValue(TimeText::kLast);
  autoTuning_.SetToolTip("Tune the receiver to each broadcast that is selected");
  utcTime_.SetToolTip("Broadcasts that are on the air now");
}

void FilterPanel::BindEvents() {
  for (Tmy_CheckBox* box : {&autoTuning_, &frequency_, &time_}) box->clicked.Bind<&FilterPanel::BoxClicked>(this);
  for (Tmy_OptionButton* option : {&eibi_, &hfcc_, &around_, &between_, &utcTime_, &fromTime_}) {
    option->clicked.Bind<&FilterPanel::OptionClicked>(this);
  }
  for (TmyEdit* edit : std::initializer_list<TmyEdit*>{first_, second_, from_, to_}) {
    edit->changed.Bind<&FilterPanel::EditChanged>(this);
    edit->committed.Bind<&FilterPanel::EditCommitted>(this);
  }
  for (const auto& text : texts_) {
    text->box.clicked.Bind<&FilterPanel::BoxClicked>(this);
    text->list->changed.Bind<&FilterPanel::TextChosen>(this);
    text->list->chosenAgain.Bind<&FilterPanel::TextChosen>(this);
  }
}

FilterPanel::Group& FilterPanel::AddGroup(std::vector<Group>& groups, bool startsRow) {
  groups.emplace_back().startsRow = startsRow;
  return groups.back();
}

void FilterPanel::AddMember(Group& group, TmyControl& control, int width, int gap) {
  const int before = group.members.empty() ? 0 : gap;
  group.members.push_back({&control, width, before});
  group.width += before + width;
}

void FilterPanel::BuildGroups() {
  const int step = Theme().Step();
  const int frequencyWidth = first_->PreferredWidth("25000.555");
  const int timeWidth = from_->PreferredWidth("00:00:00");
  std::vector<Group> groups;  // painting must not meet a group without members
  Group& database = AddGroup(groups, false);
  AddMember(database, eibi_, eibi_.PreferredWidth(), 0);
  AddMember(database, hfcc_, hfcc_.PreferredWidth(), step);
  Group& tuning = AddGroup(groups, false);
  AddMember(tuning, autoTuning_, autoTuning_.PreferredWidth(), 0);
  Group& frequency = AddGroup(groups, false);
  AddMember(frequency, frequency_, frequency_.PreferredWidth(), 0);
  AddMember(frequency, around_, around_.PreferredWidth(), step);
  AddMember(frequency, between_, between_.PreferredWidth(), step);
  AddMember(frequency, *first_, frequencyWidth, step);
  AddMember(frequency, *firstUpDown_, TmyUpDown::PreferredWidth(), 0);
  AddMember(frequency, frequencyLabel_, Theme().TextWidth("span"), step);
  AddMember(frequency, *second_, frequencyWidth, step);
  AddMember(frequency, *secondUpDown_, TmyUpDown::PreferredWidth(), 0);
  AddMember(frequency, unit_, unit_.PreferredWidth(), step);
  Group& time = AddGroup(groups, true);
  AddMember(time, time_, time_.PreferredWidth(), 0);
  AddMember(time, utcTime_, utcTime_.PreferredWidth(), step);
  AddMember(time, fromTime_, fromTime_.PreferredWidth(), step);
  AddMember(time, *from_, timeWidth, step);
  AddMember(time, timeLabel_, timeLabel_.PreferredWidth(), step);
  AddMember(time, *to_, timeWidth, step);
  const Widths& widths = ShowsHfcc() ? kHfccWidths : kEibiWidths;
  for (uint32_t i = 0; i < kTextFilters; ++i) {
    Group& text = AddGroup(groups, i == 0);
    AddMember(text, texts_[i]->box, texts_[i]->box.PreferredWidth(), 0);
    AddMember(text, *texts_[i]->list, Theme().Scaled(widths[i]), step / 2);
  }
  groups_.swap(groups);
}

std::vector<FlowPlace> FilterPanel::Flow(int width) const {
  std::vector<FlowGroup> flow;
  for (const Group& group : groups_) flow.push_back({group.width, group.startsRow});
  const int step = Theme().Step();
  return FlowLayout(flow, width - 2 * step, 2 * step);
}

int FilterPanel::ContentHeight(int width) const {
  if (groups_.empty()) return 0;
  const int rows = Flow(width).back().row + 1;
  return Theme().Step() + rows * (Theme().FieldHeight() + Theme().Step());
}

int FilterPanel::LeastHeight() const {
  return Theme().FieldHeight() + 2 * Theme().Step();
}

void FilterPanel::PlaceContent(int width, int top) {
  if (groups_.empty()) return;
  const int step = Theme().Step();
  const std::vector<FlowPlace> places = Flow(width);
  for (size_t i = 0; i < groups_.size(); ++i) {
    PlaceGroup(groups_[i], step + places[i].left, top + step + places[i].row * (Theme().FieldHeight() + step));
  }
}

void FilterPanel::PlaceGroup(const Group& group, int left, int top) {
  for (const Member& member : group.members) {
    left += member.gap;
    member.control->SetBounds(left, top, member.width, Theme().FieldHeight());
    if (auto* window = dynamic_cast<TmyComponent*>(member.control); window && !window->IsVisible()) window->Show(true);
    left += member.width;
  }
}

void FilterPanel::ThemeChanged() {
  BuildGroups();
  TmyScrollPanel::ThemeChanged();
}

// Thin lines between groups that stand side by side, and one below the panel.
void FilterPanel::Paint(HDC dc) {
  const int step = Theme().Step();
  const COLORREF line = Theme().Color().line;
  ThemeDraw::Fill(dc, {0, ClientHeight() - 1, ClientWidth(), ClientHeight()}, line);
  for (size_t i = 1; i < groups_.size(); ++i) {
    const RECT& place = groups_[i].members.front().control->Bounds();
    const RECT& before = groups_[i - 1].members.front().control->Bounds();
    const bool isTextFilter = i + kTextFilters > groups_.size();
    if (place.top != before.top || isTextFilter) continue;
    ThemeDraw::Fill(dc, {place.left - step - 1, place.top + 4, place.left - step, place.bottom - 4}, line);
  }
}

void FilterPanel::SetTexts(uint32_t filter, std::vector<FilterText> texts) {
  TmyComboBox2& list = *texts_[filter]->list;
  std::vector<FilterText>& choices = texts_[filter]->choices;
  const int32_t before = list.Selection();
  const TmyString selected = before < 0 ? TmyString() : choices[static_cast<size_t>(before)].value;
  choices = std::move(texts);
  list.Clear();
  int32_t selection = -1;
  for (const FilterText& text : choices) {
    if (before >= 0 && text.value == selected) selection = static_cast<int32_t>(list.Count());
    list.Add(text.shown);
  }
  list.SetSelection(selection);
}

void FilterPanel::ChooseDatabase(bool hfcc) {
  (hfcc ? hfcc_ : eibi_).SetChecked(true);
  if (hfcc != namedForHfcc_) ForgetTexts();  // one database's texts mean nothing in the other
  namedForHfcc_ = hfcc;
  const auto& captions = hfcc ? kHfccCaptions : kEibiCaptions;
  for (uint32_t i = 0; i < kTextFilters; ++i) texts_[i]->box.SetCaption(captions[i]);
  // EiBi's records keep an ITU country code where HFCC's keep a set of zones.
  texts_[3]->box.SetToolTip(hfcc ? "" : "The list holds ITU country codes");
  texts_[3]->list->SetToolTip(hfcc ? "" : "ITU country codes");
  BuildGroups();
  Realign();
}

void FilterPanel::ForgetTexts() {
  for (const auto& text : texts_) {
    text->box.SetChecked(false);
    text->list->Clear();
    text->choices.clear();
  }
}

FilterChoices FilterPanel::Choices() const {
  FilterChoices choices;
  choices.frequencyOn = frequency_.IsChecked();
  choices.around = around_.IsChecked();
  choices.frequencies = {first_->Value(), second_->Value()};
  choices.timeOn = time_.IsChecked();
  choices.useCurrentTime = utcTime_.IsChecked();
  choices.from = static_cast<int32_t>(from_->Value());
  choices.to = static_cast<int32_t>(to_->Value());
  for (uint32_t i = 0; i < kTextFilters; ++i) {
    if (!texts_[i]->box.IsChecked() || texts_[i]->list->Selection() < 0) continue;
    choices.texts[i] = texts_[i]->choices[static_cast<size_t>(texts_[i]->list->Selection())].value.View();
  }
  return choices;
}

bool FilterPanel::FollowsClock() const {
  return time_.IsChecked() && utcTime_.IsChecked();
}

// A filter that is off keeps its values, greyed.
void FilterPanel::EnableByBoxes() {
  const bool byFrequency = frequency_.IsChecked();
  for (TmyControl* control : std::initializer_list<TmyControl*>{&around_, &between_, first_, firstUpDown_,
                                                                &frequencyLabel_, second_, secondUpDown_, &unit_}) {
    control->Enable(byFrequency);
  }
  const bool byTime = time_.IsChecked();
  utcTime_.Enable(byTime);
  fromTime_.Enable(byTime);
  const bool byRange = byTime && fromTime_.IsChecked();
  for (TmyControl* control : std::initializer_list<TmyControl*>{from_, &timeLabel_, to_}) control->Enable(byRange);
}

void FilterPanel::BoxClicked(Tmy_CheckBox& box) {
  EnableByBoxes();
  if (&box == &autoTuning_) {
    autoTuningChanged();
  } else {
    changed(false);
  }
}

void FilterPanel::OptionClicked(Tmy_OptionButton& option) {
  if (&option == &eibi_ || &option == &hfcc_) {
    ChooseDatabase(&option == &hfcc_);
    databaseChanged();
    return;
  }
  if (&option == &around_ || &option == &between_) SwitchFrequencies(&option == &around_);
  EnableByBoxes();
  changed(false);
}

// Runs at every click, also on the option that was chosen already.
void FilterPanel::SwitchFrequencies(bool around) {
  const FrequencyEdits before = {first_->Value(), second_->Value()};
  const FrequencyEdits after = around ? SwitchToAround(before) : SwitchToBetween(before);
  first_->SetValue(after.first);
  second_->SetValue(after.second);
  frequencyLabel_.SetText(around ? "span" : "to");
}

void FilterPanel::EditChanged(TmyEdit&) {
  changed(false);
}

// Comes when a click into the grid takes the focus away: rows that moved now would put another one under the cursor.
void FilterPanel::EditCommitted(TmyEdit&) {
  changed(true);
}

// Who picks a text wants to filter by it.
void FilterPanel::TextChosen(TmyComboBox2& list) {
  for (const auto& text : texts_) {
    if (text->list == &list) text->box.SetChecked(list.Selection() >= 0);
  }
  changed(false);
}
