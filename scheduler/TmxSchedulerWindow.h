// Marlux 3. The window with the grid of scheduled tasks, which opens the task editor.
//
//   auto* scheduler = new TmxSchedulerWindow(*this);   // belongs to its window, which the main window owns
//   scheduler->Open();
//   scheduler->PostNewTask(nullptr);                   // the editor opens, on a new task's defaults
//
// Made once and hidden when the user closes it. Keys in the grid: Insert makes a task, Enter edits the current one,
// Delete deletes it; Escape closes the window.
#pragma once

#include <memory>
#include <vector>

#include "scheduler/SchedulerOwner.h"
#include "toolkit/TmyDialog.h"
#include "toolkit/TmyStringGrid.h"
#include "toolkit/Tmy_Btn.h"

class TmxTaskWindow;
class TmyMsgBox;

class TmxSchedulerWindow : public TmyDialog, private TmyGridModel {
 public:
  // Opens the editor on a new task: lParam is a TmxTask made with new, which is the window's from then on, or 0 for the
  // defaults. While something is open already that comes to the front instead.
  static constexpr UINT kMsgNewTask = WM_USER;

  explicit TmxSchedulerWindow(SchedulerOwner& owner);  // the owner outlives it; hidden at first

  void Open();  // shows it, restored and in front
  // kMsgNewTask, once the message in progress is over.
  void PostNewTask(std::unique_ptr<TmxTask> task);

  TmyEvent<> opening;  // it is about to be shown or brought to the front: the moment to move it into view
  TmyEvent<> ending;   // the window is about to go, with its children: the last moment to read places and widths

  // What the main window tells: other tasks in the list, another zone, another running task.
  void TasksChanged();
  void TasksCame(uint32_t count);  // so many in front of the others: what is selected stays so
  void ZoneChanged() { grid_->RepaintRows(); }
  void RunningTaskChanged() { grid_->RepaintRows(); }

  [[nodiscard]] TmyStringGrid& Grid() noexcept { return *grid_; }  // for its columns' widths

  void Realign() override;
  void ThemeChanged() override;
  void Escape() override;
  void ConstrainBounds(int& x, int& y, int& width, int& height) override;
  void PreviewKey(TmyComponent& sender, uint32_t& key, LPARAM flags) override;
  bool Closing() override;
  LRESULT WndProc(UINT message, WPARAM wParam, LPARAM lParam) override;

 protected:
  void Destroying() override;

 private:
  // TmyGridModel
  [[nodiscard]] uint32_t RowCount() const override { return owner_.Tasks().Count(); }
  void CellText(uint32_t record, uint32_t column, TmyCellText& text) const override;
  [[nodiscard]] bool IsMarked(uint32_t record) const override;
  [[nodiscard]] bool IsHighlighted(uint32_t record) const override { return IsMarked(record); }
  [[nodiscard]] const char* EmptyText() const override { return "No scheduled recordings"; }

  void SetFirstWidths();
  [[nodiscard]] SIZE FirstSize() const;
  [[nodiscard]] SIZE LeastSize() const;
  void EnableButtons();
  void CurrentMoved(uint32_t row);
  void RowClicked(const TmyRowClick& click);
  void RowActivated(uint32_t row);
  void ColumnResized(int column);
  void Clicked(Tmy_Btn& button);

  [[nodiscard]] TmxTask* SelectedTask() const noexcept;
  void NewTaskWanted(std::unique_ptr<TmxTask> task);
  void EditSelected();
  void DeleteSelected();
  [[nodiscard]] bool RunEditor(TmxTask& task);  // false: cancelled, or this window is gone
  [[nodiscard]] bool IsConfirmed();             // the question before deleting
  [[nodiscard]] TmyComponent* OpenDialog() const noexcept;
  [[nodiscard]] bool IsDialogOpen() const;
  void NewTaskPosted(const void* address);

  SchedulerOwner& owner_;
  // In the order in which Tab walks through them.
  TmyStringGrid* grid_;  // belongs to its window
  Tmy_Btn newTask_;
  Tmy_Btn deleteTask_;
  Tmy_Btn editTask_;
  Tmy_Btn close_;
  std::vector<std::unique_ptr<TmxTask>> posted_;  // to itself, and not arrived yet
  TmxTaskWindow* editor_ = nullptr;               // while it is open; both belong to their windows
  TmyMsgBox* question_ = nullptr;
  RECT unplaced_ = {};    // where it is until it opens: who finds it elsewhere has placed it
  int fittedHeight_ = 0;  // of the theme's text for which the columns' widths are meant
};
