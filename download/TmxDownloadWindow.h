// Marlux 3. "Download": the modal window that brings both databases up to date and says how it goes.
//
//   const DownloadResult result = TmxDownloadWindow::Run(*this, DataFolder());
//   if (!IsAlive()) return;   // the host may have closed the plug-in meanwhile
//
// The run itself is DownloadRun's; here are its window and its sockets.
#pragma once

#include <memory>
#include <optional>

#include "download/DownloadRun.h"
#include "download/TmyHttpSocket.h"
#include "toolkit/ProgressBar.h"
#include "toolkit/TmyDialog.h"
#include "toolkit/Tmy_Btn.h"
#include "toolkit/Tmy_Label.h"

struct DownloadResult {
  bool hasEibi = false;  // a new EiBi schedule
  uint32_t archives = 0;
};

class TmxDownloadWindow : public TmyDialog, private DownloadDesk {
 public:
  // Opens the window over its owner and returns when the user has closed it, whether the run had ended or not. What was
  // saved until then counts. The owner may be gone afterwards.
  static DownloadResult Run(TmyComponent& owner, const TmyString& dataFolder);

  explicit TmxDownloadWindow(TmyComponent& owner);
  // Runs the modal loop. No path separator at the folder's end.
  DownloadResult Execute(const TmyString& dataFolder);

  void Realign() override;
  void ThemeChanged() override;
  void Confirm() override;
  void Escape() override;

 protected:
  LRESULT WndProc(UINT message, WPARAM wParam, LPARAM lParam) override;
  void Destroying() override;

 private:
  void ShowStatus(const TmyString& line1, const TmyString& line2) override;
  void ShowProgress(uint32_t received, uint32_t expected, const TmyString& line2) override;
  void ShowWorking(bool working) override;
  void Request(DownloadSite site, const TmyString& path) override;
  void DropRequest() override;
  template <class Step>
  void OrGiveUp(Step step);
  void MakeRequest(DownloadSite site, const TmyString& path);

  // From the sockets
  void Connected(TmyHttpSocket& socket);
  void Progress(TmyHttpSocket& socket);
  void Finished(TmyHttpSocket& socket);
  void TimedOut(TmyHttpSocket& socket);
  void Closed(TmySocket& socket, int error);

  void TellLines();
  void PaintNow();
  void TakeIconOf(const TmyComponent& owner);
  void ButtonClicked(Tmy_Btn& button);

  Tmy_Label line1_;
  Tmy_Label line2_;
  ProgressBar* bar_;  // belongs to its window
  Tmy_Btn button_;
  std::optional<DownloadRun> run_;
  std::unique_ptr<TmyHttpSocket> request_;
  uint32_t lastPainted_ = 0;  // ticks
};
