#include "download/TmxDownloadWindow.h"

#include <algorithm>
#include <new>

#include "download/ServerNames.h"
#include "foundation/Clock.h"
#include "foundation/Trace.h"
#include "toolkit/TmyApplication.h"

namespace {

constexpr DWORD kStyle = WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_CLIPCHILDREN | WS_CLIPSIBLINGS;
constexpr DWORD kExtendedStyle = WS_EX_WINDOWEDGE | WS_EX_NOPARENTNOTIFY;
static_assert(kStyle == 0x86C80000 && kExtendedStyle == 0x104);
constexpr int kWidth = 400;  // pixels, frame included
constexpr int kHeight = 100;
constexpr int kButtonPressed = 1;        // what ShowModal returns
constexpr uint32_t kPaintInterval = 50;  // ms
constexpr UINT kRequestFailed = WM_USER;

}  // namespace

DownloadResult TmxDownloadWindow::Run(TmyComponent& owner, const TmyString& dataFolder) {
  const Hold hold;  // the host may close the plug-in inside
  auto* window = new TmxDownloadWindow(owner);
  if (!window->IsAlive()) {
    delete window;
    return {};
  }
  struct Closing {
    TmxDownloadWindow& window;  // still held; it may be closed already, which is nothing then
    ~Closing() { window.Destroy(); }
  };
  const Closing closing{*window};
  return window->Execute(dataFolder);
}

TmxDownloadWindow::TmxDownloadWindow(TmyComponent& owner)
    : TmyDialog("Download", kStyle, kExtendedStyle, owner),
      line1_(*this),
      line2_(*this),
      bar_(new ProgressBar(*this)),
      button_(*this, "Cancel") {
  button_.SetDefault(true);
  button_.clicked.Bind<&TmxDownloadWindow::ButtonClicked>(this);
  TakeIconOf(owner);
  PlaceCentred(owner, {Theme().Scaled(kWidth), Theme().Scaled(kHeight)});
}

// The window is seen before the first name is looked up, which may take the thread for seconds.
DownloadResult TmxDownloadWindow::Execute(const TmyString& dataFolder) {
  DownloadDesk& desk = *this;
  run_.emplace(desk, dataFolder);
  Show(true);
  if (!IsAlive()) return {};  // closed by whoever heard of its being shown
  run_->Start();
  if (!IsAlive() || ShowModal(GetParent()) == 0) return {};
  request_.reset();
  return {run_->HasEibi(), run_->ArchiveCount()};
}

// The host closes the plug-in while a document is on its way: nothing of it may arrive here any more.
void TmxDownloadWindow::Destroying() {
  request_.reset();
}

void TmxDownloadWindow::TakeIconOf(const TmyComponent& owner) {
  LRESULT icon = SendMessageA(owner.Handle(), WM_GETICON, ICON_BIG, 0);
  if (icon == 0) icon = static_cast<LRESULT>(GetClassLongPtrA(owner.Handle(), GCLP_HICON));
  SendMessageA(Handle(), WM_SETICON, ICON_BIG, icon);
}

// The upper line has the whole width. The button stands in the lower right corner, the bar beside it while the run
// works. The lower line is two lines when the run ends badly: the second has the bar's place.
void TmxDownloadWindow::Realign() {
  const int step = Theme().Step();
  const int row = Theme().TextHeight();
  const int buttonWidth = std::max(button_.PreferredWidth(), Theme().Scaled(72));
  const int buttonTop = ClientHeight() - step - Theme().FieldHeight();
  const int left = ClientWidth() - step - buttonWidth;
  line1_.SetBounds(step, step, ClientWidth() - 2 * step, row);
  line2_.SetBounds(step, step + row + step / 2, left - 2 * step, line2_.PreferredSize().cy);
  const int barHeight = ProgressBar::PreferredHeight();
  bar_->SetBounds(step, buttonTop + (Theme().FieldHeight() - barHeight) / 2, left - 2 * step, barHeight);
  button_.SetBounds(left, buttonTop, buttonWidth, Theme().FieldHeight());
}

// It stays where the user has put it.
void TmxDownloadWindow::ThemeChanged() {
  RECT place;
  GetWindowRect(Handle(), &place);
  SetBounds(place.left, place.top, Theme().Scaled(kWidth), Theme().Scaled(kHeight));
  TmyDialog::ThemeChanged();
}

LRESULT TmxDownloadWindow::WndProc(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message != kRequestFailed) return TmyDialog::WndProc(message, wParam, lParam);
  try {
    if (run_) run_->RequestFailed();
  } catch (const std::bad_alloc&) {
    DropRequest();
    ShowWorking(false);
  }
  return 0;
}

void TmxDownloadWindow::ButtonClicked(Tmy_Btn&) {
  EndModal(kButtonPressed);
}

void TmxDownloadWindow::Confirm() {
  button_.Press();
}

void TmxDownloadWindow::Escape() {
  SendMessageA(Handle(), WM_CLOSE, 0, 0);
}

// Without memory nothing more would come of the request: its end is told already, or it was never made.
template <class Step>
void TmxDownloadWindow::OrGiveUp(Step step) {
  try {
    step();
  } catch (const std::bad_alloc&) {
    PostMessageA(Handle(), kRequestFailed, 0, 0);
  }
}

// A status that cannot be shown is no reason to give anything up.
void TmxDownloadWindow::Connected(TmyHttpSocket&) {
  try {
    run_->Connected();
  } catch (const std::bad_alloc&) {
    Trace::Line("No memory for the status");
  }
}

void TmxDownloadWindow::Progress(TmyHttpSocket& socket) {
  run_->Progress(socket.Body().Size(), socket.StillExpected(), socket.IsSizeKnown());
}

void TmxDownloadWindow::Finished(TmyHttpSocket& socket) {
  OrGiveUp([&] { run_->Finished({socket.HeaderLines().Get(0), socket.Body().Data(), socket.Body().Size()}); });
}

void TmxDownloadWindow::TimedOut(TmyHttpSocket&) {
  OrGiveUp([this] { run_->TimedOut(); });
}

void TmxDownloadWindow::Closed(TmySocket&, int) {
  OrGiveUp([this] { run_->Closed(); });
}

// Painted at once, before a look-up that holds the thread. Messages are not pumped here: the user might close the
// window and the host the plug-in inside.
void TmxDownloadWindow::ShowStatus(const TmyString& line1, const TmyString& line2) {
  line1_.SetText(line1);
  line2_.SetText(line2);
  Realign();
  TellLines();
  PaintNow();
}

// What is read out of the window, drawn lines being nobody's but the eye's.
void TmxDownloadWindow::TellLines() {
  bar_->SetCaption(line1_.Text() + "\r\n" + line2_.Text());
}

void TmxDownloadWindow::PaintNow() {
  lastPainted_ = Clock::Ticks();
  UpdateWindow(Handle());
  UpdateWindow(bar_->Handle());
}

// Data that arrive faster than the window can paint must not be held up, nor keep it from painting altogether.
void TmxDownloadWindow::ShowProgress(uint32_t received, uint32_t expected, const TmyString& line2) {
  bar_->SetRange(expected);
  bar_->SetPosition(received);
  line2_.SetText(line2);
  TellLines();
  if (Clock::Ticks() - lastPainted_ >= kPaintInterval) PaintNow();
}

void TmxDownloadWindow::ShowWorking(bool working) {
  button_.SetCaption(working ? "Cancel" : "OK");
  bar_->Show(working);
}

// Called inside events of the request before: what cannot be asked for is given up when they are over.
void TmxDownloadWindow::Request(DownloadSite site, const TmyString& path) {
  OrGiveUp([&] { MakeRequest(site, path); });
}

void TmxDownloadWindow::MakeRequest(DownloadSite site, const TmyString& path) {
  bar_->SetRange(0);
  request_ = std::make_unique<TmyHttpSocket>(ServerNames::TimeOut());
  request_->connected.Bind<&TmxDownloadWindow::Connected>(this);
  request_->progress.Bind<&TmxDownloadWindow::Progress>(this);
  request_->finished.Bind<&TmxDownloadWindow::Finished>(this);
  request_->timedOut.Bind<&TmxDownloadWindow::TimedOut>(this);
  request_->closed.Bind<&TmxDownloadWindow::Closed>(this);
  const bool isEibi = site == DownloadSite::kEibi;
  request_->Get(isEibi ? ServerNames::EibiHost() : ServerNames::HfccHost(), path);
}

void TmxDownloadWindow::DropRequest() {
  request_.reset();
}
