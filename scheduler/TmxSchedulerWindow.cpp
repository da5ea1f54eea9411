#include "scheduler/TmxSchedulerWindow.h"

#include <algorithm>
#include <new>
#include <utility>

#include "foundation/Clock.h"
#include "foundation/Trace.h"
#include "scheduler/NewTask.h"
#include "scheduler/TaskTexts.h"
#include "scheduler/TaskTime.h"
#include "scheduler/TmxTaskWindow.h"
#include "toolkit/CentredPlace.h"
#include "toolkit/ListKeys.h"
#include "toolkit/TmyApplication.h"
#include "toolkit/TmyMsgBox.h"

namespace {

// As a pop-up it is a dialog to window managers under Wine, which then give it the keyboard.
constexpr DWORD kStyle = WS_POPUP | WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN;
constexpr DWORD kExtendedStyle = WS_EX_CONTROLPARENT;
constexpr int kLeastWidth = 429;  // pixels, frame included
constexpr int kLeastHeight = 208;
constexpr int kBesideColumns = 10;  // pixels that the window is at least wider than its columns
constexpr int kFirstRows = 8;
constexpr uint32_t kLeastRows = 3;
constexpr int kCellMargin = 17;  // beside a cell's text, both sides together, at 96 dpi
constexpr int kYes = 1;          // the question's first button

constexpr TmyGridColumn kColumns[] = {{"Active"},         {"Frequency", 0, true}, {"From"}, {"To"},
                                      {"Start", 0, true}, {"Stop", 0, true},      {"Mode"}, {"Days"}};
static_assert(std::size(kColumns) == kTaskColumnCount);

int StripHeight() {  // of the buttons
  return Theme().FieldHeight() + 3 * Theme().Step();
}

SIZE FrameSize() {
  RECT frame = {};
  AdjustWindowRectEx(&frame, kStyle, FALSE, kExtendedStyle);
  return {frame.right - frame.left, frame.bottom - frame.top};
}

// The main window waits, too: a dialog opened from its menu would run inside ours and keep ours from ending.
class DisabledWindow {
 public:
  explicit DisabledWindow(const TmyComponent& window)
      : handle_(window.Handle()), wasDisabled_(EnableWindow(handle_, FALSE) != FALSE) {}
  DisabledWindow(const DisabledWindow&) = delete;
  DisabledWindow& operator=(const DisabledWindow&) = delete;
  ~DisabledWindow() {  // by handle: the object may be gone
    if (IsWindow(handle_)) EnableWindow(handle_, !wasDisabled_);
  }

 private:
  HWND handle_;
  bool wasDisabled_;
};

struct DialogSearch {
  HWND owner, other, found;
};

BOOL CALLBACK LookAt(HWND window, LPARAM parameter) {
  DialogSearch& search = *reinterpret_cast<DialogSearch*>(parameter);
  const bool isOpen = IsWindowVisible(window) && IsWindowEnabled(window);
  if (isOpen && window != search.other && GetWindow(window, GW_OWNER) == search.owner) search.found = window;
  return !search.found;
}

// What a disabled window waits for, most likely: of those that it owns, but for one, an enabled one. Null when there is
// none.
HWND DialogOn(HWND window, HWND other) noexcept {
  DialogSearch search = {window, other, nullptr};
  EnumThreadWindows(GetCurrentThreadId(), LookAt, reinterpret_cast<LPARAM>(&search));
  return search.found;
}

}  // namespace

TmxSchedulerWindow::TmxSchedulerWindow(SchedulerOwner& owner)
    : TmyDialog("Scheduler", kStyle, kExtendedStyle, owner.Window()),
      owner_(owner),
      grid_(new TmyStringGrid(*this)),
      newTask_(*this, "New task"),
      deleteTask_(*this, "Delete task"),
      editTask_(*this, "Edit task"),
      close_(*this, "Close") {
  SetKeyPreview(true);
  newTask_.SetToolTip("Insert");
  deleteTask_.SetToolTip("Delete");
  editTask_.SetToolTip("Enter");
  for (Tmy_Btn* button : {&newTask_, &deleteTask_, &editTask_, &close_}) {
    button->clicked.Bind<&TmxSchedulerWindow::Clicked>(this);
  }
  grid_->SetColumns(kColumns, kTaskColumnCount);
  SetFirstWidths();
  grid_->SetModel(this);
  grid_->currentMoved.Bind<&TmxSchedulerWindow::CurrentMoved>(this);
  grid_->rowClicked.Bind<&TmxSchedulerWindow::RowClicked>(this);
  grid_->rowActivated.Bind<&TmxSchedulerWindow::RowActivated>(this);
  grid_->columnResized.Bind<&TmxSchedulerWindow::ColumnResized>(this);
  PlaceCentred(owner.Window(), FirstSize());
  unplaced_ = Bounds();
  grid_->Show(true);
  TasksChanged();
}

// For the texts of a task with long ones: dates and times are as long as the user's form of them.
void TmxSchedulerWindow::SetFirstWidths() {
  constexpr uint32_t kMondayWednesdayFriday = 0x2A;
  const SYSTEMTIME longDate = {2028, 12, 0, 28, 0, 0, 0, 0};
  const TaskDate date = DateOfTime(longDate);
  const TmxTask sample = {29999500, 1, 0, date, date, 22 * 3600, 22 * 3600, kMondayWednesdayFriday, 1};
  for (uint32_t column = 0; column < kTaskColumnCount; ++column) {
    const TmyString text = TaskText(sample, TaskColumn{column}, 0);
    const int title = Theme().TextWidth(kColumns[column].title, TmyTheme::Font::kBold);
    grid_->SetColumnWidth(column, std::max(title, Theme().TextWidth(text.View())) + Theme().Scaled(kCellMargin));
  }
  fittedHeight_ = Theme().TextHeight();
}

SIZE TmxSchedulerWindow::FirstSize() const {
  const GridGeometry::Layout& grid = grid_->Layout();
  const SIZE frame = FrameSize();
  const int width = grid_->ColumnsRight() + TmyScrollBar::Thickness() + static_cast<int>(frame.cx) + 2;
  const int height = static_cast<int>(frame.cy) + grid.titleHeight + kFirstRows * grid.rowHeight + 2 + StripHeight();
  return {width, height};
}

// All columns in view beside the frame, as far as screens go; the buttons side by side, some rows.
SIZE TmxSchedulerWindow::LeastSize() const {
  const SIZE frame = FrameSize();
  const int besideColumns = std::max<int>(kBesideColumns, frame.cx + 2);
  int buttons = 0;
  for (const Tmy_Btn* button : {&newTask_, &deleteTask_, &editTask_, &close_}) {
    buttons += button->PreferredWidth() + Theme().Step();
  }
  const GridGeometry::Layout& grid = grid_->Layout();
  const int rows = grid.titleHeight + static_cast<int>(kLeastRows) * grid.rowHeight + TmyScrollBar::Thickness();
  return {std::max({kLeastWidth, std::min(grid_->ColumnsRight() + besideColumns, GetSystemMetrics(SM_CXVIRTUALSCREEN)),
                    buttons + 2 * Theme().Step() + static_cast<int>(frame.cx)}),
          std::max(kLeastHeight, rows + StripHeight() + static_cast<int>(frame.cy))};
}

void TmxSchedulerWindow::ConstrainBounds(int&, int&, int& width, int& height) {
  if (fittedHeight_ == 0) return;
  const SIZE least = LeastSize();
  width = std::max<int>(width, least.cx);
  height = std::max<int>(height, least.cy);
}

// Where it has to become wider it stays on its screen, with its buttons.
void TmxSchedulerWindow::ColumnResized(int) {
  const int width = LeastSize().cx;
  if (width <= Width()) return;
  const RECT work = WorkAreaAt(Bounds());
  const int left = std::max<int>(work.left, std::min<int>(Bounds().left, work.right - width));
  SetBounds(left, Bounds().top, width, Height());
}

void TmxSchedulerWindow::Realign() {
  if (fittedHeight_ == 0) return;
  const int step = Theme().Step();
  const int gridHeight = std::max(0, ClientHeight() - StripHeight());
  grid_->SetBounds(0, 0, ClientWidth(), gridHeight);
  const int top = gridHeight + 3 * step / 2;
  int left = 3 * step / 2;
  for (Tmy_Btn* button : {&newTask_, &deleteTask_, &editTask_}) {
    button->SetBounds(left, top, button->PreferredWidth(), Theme().FieldHeight());
    left += button->PreferredWidth() + step;
  }
  close_.SetBounds(ClientWidth() - 3 * step / 2 - close_.PreferredWidth(), top, close_.PreferredWidth(),
                   Theme().FieldHeight());
}

void TmxSchedulerWindow::ThemeChanged() {
  grid_->ScaleWidths(Theme().TextHeight(), std::exchange(fittedHeight_, Theme().TextHeight()));
  TmyDialog::ThemeChanged();
  ColumnResized(0);
}

void TmxSchedulerWindow::CellText(uint32_t record, uint32_t column, TmyCellText& text) const {
  const TmxTask* task = owner_.Tasks().Get(record);
  if (!task) return;
  text.Set(TaskText(*task, TaskColumn{column}, owner_.IsUtc() ? 0 : Clock::LocalOffsetSeconds()).View());
  text.secondary = task->enabled == 0;
}

bool TmxSchedulerWindow::IsMarked(uint32_t record) const {
  const TmxTask* running = owner_.RunningTask();
  return running && running == owner_.Tasks().Get(record);
}

void TmxSchedulerWindow::TasksChanged() {
  grid_->RowsChanged();
  grid_->SetCurrentRow(RowCount() == 0 ? TmyStringGrid::kNoRow : TmyStringGrid::RowOf(RowCount() - 1), true);
  grid_->RepaintRows();
  EnableButtons();
}

void TmxSchedulerWindow::TasksCame(uint32_t count) {
  const uint32_t row = grid_->CurrentRow();
  TasksChanged();
  if (row != TmyStringGrid::kNoRow) grid_->SetCurrentRow(row + count, true);
}

void TmxSchedulerWindow::EnableButtons() {
  const bool hasTask = SelectedTask() != nullptr;
  for (Tmy_Btn* button : {&deleteTask_, &editTask_}) {
    button->Enable(hasTask);
    if (hasTask || FocusedControl() != button) continue;
    FocusDrawn(nullptr);
    if (::GetFocus() == Handle()) grid_->TakeFocus();
  }
}

void TmxSchedulerWindow::CurrentMoved(uint32_t) {
  EnableButtons();
}
void TmxSchedulerWindow::RowClicked(const TmyRowClick&) {
  EnableButtons();
}
void TmxSchedulerWindow::RowActivated(uint32_t) {
  EditSelected();
}

void TmxSchedulerWindow::Clicked(Tmy_Btn& button) {
  if (&button == &newTask_) NewTaskWanted(nullptr);
  if (&button == &deleteTask_) DeleteSelected();
  if (&button == &editTask_) EditSelected();
  if (&button == &close_) SendMessageA(Handle(), WM_CLOSE, 0, 0);
}

TmxTask* TmxSchedulerWindow::SelectedTask() const noexcept {
  return owner_.Tasks().Get(TmyStringGrid::RecordOf(grid_->CurrentRow()));  // null when there is no row
}

TmyComponent* TmxSchedulerWindow::OpenDialog() const noexcept {
  return editor_ ? static_cast<TmyComponent*>(editor_) : question_;
}

// What is open comes to the front. Below a loop of ours a dialog on the main window could be answered but not end, and
// what it was opened for would wait.
bool TmxSchedulerWindow::IsDialogOpen() const {
  const HWND main = owner_.Window().Handle();
  if (!OpenDialog() && IsWindowEnabled(main)) return false;
  const HWND dialog = OpenDialog() ? OpenDialog()->Handle() : DialogOn(main, Handle());
  if (dialog) SetForegroundWindow(dialog);
  return true;
}

void TmxSchedulerWindow::NewTaskWanted(std::unique_ptr<TmxTask> task) {
  const Hold hold;
  if (IsDialogOpen()) return;
  if (!task) {
    const uint32_t frequency = owner_.CurrentFrequencyRaw();
    if (!IsAlive() || IsDialogOpen()) return;  // the host ran inside
    task = std::make_unique<TmxTask>(NewTask(frequency, DateOfTime(Clock::Utc())));
  }
  // Room comes first: what was entered and confirmed must not fail to fit.
  if (!owner_.Tasks().MakeRoomForOne() || !RunEditor(*task)) return;
  owner_.Tasks().Add(std::move(task));
  TasksChanged();
}

// The editor works on a copy: the list may change under it.
void TmxSchedulerWindow::EditSelected() {
  TmxTask* task = SelectedTask();
  if (!task || IsDialogOpen()) return;
  const Hold hold;
  TmxTask edited = *task;
  if (!RunEditor(edited) || owner_.Tasks().IndexOf(task) < 0) return;
  *task = edited;
  TasksChanged();
}

void TmxSchedulerWindow::DeleteSelected() {
  const TmxTask* task = SelectedTask();
  if (!task || IsDialogOpen()) return;
  const Hold hold;
  if (!IsConfirmed()) return;
  const int32_t at = owner_.Tasks().IndexOf(task);
  if (at < 0) return;
  owner_.Tasks().Delete(static_cast<uint32_t>(at));
  TasksChanged();
}

bool TmxSchedulerWindow::RunEditor(TmxTask& task) {
  auto* editor = new TmxTaskWindow(owner_, *this);
  editor_ = editor;
  const DisabledWindow disabled(owner_.Window());
  bool confirmed = false;
  try {
    confirmed = editor->Edit(task);
  } catch (const std::bad_alloc&) {
    Trace::Line("No memory for the task");
  }
  if (TmyApplication::IsTerminating() || !IsAlive()) return false;
  editor_ = nullptr;
  editor->Destroy();
  return confirmed;
}

bool TmxSchedulerWindow::IsConfirmed() {
  auto* question = new TmyMsgBox(*this, "Delete task", "Are you sure?", {"Yes", "No"});
  question_ = question;
  const DisabledWindow disabled(owner_.Window());
  const int result = question->ShowModal(this);
  if (TmyApplication::IsTerminating() || !IsAlive()) return false;
  question_ = nullptr;
  question->Destroy();
  return result == kYes;
}

void TmxSchedulerWindow::Open() {
  if (!IsIconic(Handle()) && !IsZoomed(Handle())) opening();
  if (!IsVisible()) {
    if (EqualRect(&unplaced_, &Bounds())) PlaceCentred(owner_.Window(), {Width(), Height()});
    unplaced_ = {};
    return Show(true);
  }
  if (IsIconic(Handle())) ShowWindow(Handle(), SW_RESTORE);
  SetForegroundWindow(OpenDialog() ? OpenDialog()->Handle() : Handle());
}

void TmxSchedulerWindow::PostNewTask(std::unique_ptr<TmxTask> task) {
  posted_.push_back(std::move(task));
  if (!PostMessageA(Handle(), kMsgNewTask, 0, reinterpret_cast<LPARAM>(posted_.back().get()))) posted_.pop_back();
}

// Anybody can post the message: an address that is not one of ours is not followed. None at all means a task for now.
void TmxSchedulerWindow::NewTaskPosted(const void* address) {
  const auto at = std::ranges::find_if(posted_, [=](const auto& task) { return task.get() == address; });
  if (at == posted_.end()) {
    if (!address) NewTaskWanted(nullptr);
    return;
  }
  std::unique_ptr<TmxTask> task = std::move(*at);
  posted_.erase(at);
  NewTaskWanted(std::move(task));
}

void TmxSchedulerWindow::PreviewKey(TmyComponent& sender, uint32_t& key, LPARAM flags) {
  if (&sender != grid_ || (key != VK_INSERT && key != VK_DELETE)) return;
  const bool isInsert = std::exchange(key, 0) == VK_INSERT;
  const bool isHeld = ListKeys::IsRepeated(flags);  // one press asks once, and once confirmed takes no other task along
  if (isHeld || GetKeyState(VK_SHIFT) < 0 || GetKeyState(VK_CONTROL) < 0 || GetKeyState(VK_MENU) < 0) return;
  isInsert ? NewTaskWanted(nullptr) : DeleteSelected();
}

void TmxSchedulerWindow::Escape() {
  SendMessageA(Handle(), WM_CLOSE, 0, 0);
}

// Never destroyed by the user, only by its owner.
bool TmxSchedulerWindow::Closing() {
  if (const TmyComponent* dialog = OpenDialog()) {
    SendMessageA(dialog->Handle(), WM_CLOSE, 0, 0);
    return false;
  }
  const bool wasActive = GetActiveWindow() == Handle();
  Show(false);
  if (wasActive) SetForegroundWindow(owner_.Window().Handle());
  return false;
}

void TmxSchedulerWindow::Destroying() {
  ending();
  question_ = nullptr;  // goes with this window; when the module goes nobody comes back to say so
  if (editor_) std::exchange(editor_, nullptr)->Destroy();
}

LRESULT TmxSchedulerWindow::WndProc(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == kMsgNewTask) {
    NewTaskPosted(reinterpret_cast<const void*>(lParam));
    return 0;
  }
  if (message == WM_GETMINMAXINFO && fittedHeight_ > 0) {
    const SIZE least = LeastSize();
    reinterpret_cast<MINMAXINFO*>(lParam)->ptMinTrackSize = {least.cx, least.cy};
  }
  return TmyDialog::WndProc(message, wParam, lParam);
}
