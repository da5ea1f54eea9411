#include "download/TmxDownloadWindow.h"

#include <algorithm>

#include "download/ServerNames.h"
#include "foundation/Clock.h"
#include "toolkit/FocusOrder.h"
#include "toolkit/TmyApplication.h"

namespace {

constexpr DWORD kStyle = WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_CLIPCHILDREN | WS_CLIPSIBLINGS;
constexpr DWORD kExtendedStyle = WS_EX_WINDOWEDGE | WS_EX_NOPARENTNOTIFY;
static_assert(kStyle == 0x86C80000 && kExtendedStyle == 0x104);
constexpr int kWidth = 400;  // pixels, frame included
constexpr int kHeight = 100;
constexpr int kButtonPressed = 1;        // what ShowModal returns
constexpr uint32_t kPaintInterval = 50;  // ms

const TmyTheme& Theme() {
  return TmyApplication::Get().Theme();
}

}  // namespace

DownloadResult TmxDownloadWindow::Run(TmyComponent& owner, const TmyString& dataFolder) {
  const Hold hold;  // the host may close the plug-in inside
  auto* window = new TmxDownloadWindow(owner);
  if (!window->IsAlive()) {
    delete window;
    return {};
  }
  const DownloadResult result = window->Execute(dataFolder);
  window->Destroy();  // nothing when it is gone already
  return result;
}

TmxDownloadWindow::TmxDownloadWindow(TmyComponent& owner)
    : TmyComponent("Download", kStyle, kExtendedStyle, -1, -1, kWidth, kHeight, &owner),
      line1_(*this),
      line2_(*this),
      bar_(new ProgressBar(*this)),
      button_(*this, "Cancel") {
  SetDoubleBuffered(true);
  button_.SetDefault(true);
  button_.clicked.Bind<&TmxDownloadWindow::ButtonClicked>(this);
  TakeIconOf(owner);
  PlaceOver(owner);
}

// The window is seen before the first name is looked up, which may take the thread for seconds.
DownloadResult TmxDownloadWindow::Execute(const TmyString& dataFolder) {
  DownloadDesk& desk = *this;
  run_.emplace(desk, dataFolder);
  Show(true);
  run_->Start();
  if (ShowModal(GetParent()) == 0) return {};
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

void TmxDownloadWindow::PlaceOver(const TmyComponent& owner) {
  const int width = Theme().Scaled(kWidth);
  const int height = Theme().Scaled(kHeight);
  RECT around = {0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
  if (owner.IsVisible() && !IsIconic(owner.Handle())) GetWindowRect(owner.Handle(), &around);
  SetBounds(std::max(0L, (around.left + around.right - width) / 2),
            std::max(0L, (around.top + around.bottom - height) / 2), width, height);
  Realign();
}

// The upper line has the whole width. The button stands in the lower right corner; beside it the lower line, of which
// the second half is the bar's place while the run works.
void TmxDownloadWindow::Realign() {
  const int step = Theme().Step();
  const int row = Theme().TextHeight();
  const int buttonWidth = std::max(button_.PreferredWidth(), Theme().Scaled(72));
  const int buttonTop = ClientHeight() - step - Theme().FieldHeight();
  const int left = ClientWidth() - step - buttonWidth;
  const int below = step + row;
  line1_.SetBounds(step, step / 2, ClientWidth() - 2 * step, row);
  line2_.SetBounds(step, below, left - 2 * step, 2 * row);
  bar_->SetBounds(step, buttonTop + (Theme().FieldHeight() - ProgressBar::PreferredHeight()) / 2, left - 2 * step,
                  ProgressBar::PreferredHeight());
  button_.SetBounds(left, buttonTop, buttonWidth, Theme().FieldHeight());
}

void TmxDownloadWindow::ThemeChanged() {
  if (const TmyComponent* owner = GetParent()) PlaceOver(*owner);
  TmyComponent::ThemeChanged();
}

void TmxDownloadWindow::FocusChanged(bool focused) {
  if (focused && !FocusedControl()) FocusOrderOf(*this).First();
  TmyComponent::FocusChanged(focused);
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

void TmxDownloadWindow::Connected(TmyHttpSocket&) {
  run_->Connected();
}

void TmxDownloadWindow::Progress(TmyHttpSocket& socket) {
  run_->Progress(socket.Body().Size(), socket.StillExpected(), socket.IsSizeKnown());
}

void TmxDownloadWindow::Finished(TmyHttpSocket& socket) {
  run_->Finished({socket.HeaderLines().Get(0), socket.Body().Data(), socket.Body().Size()});
}

void TmxDownloadWindow::TimedOut(TmyHttpSocket&) {
  run_->TimedOut();
}

void TmxDownloadWindow::Closed(TmySocket&, int) {
  run_->Closed();
}

// Painted at once, before a look-up that holds the thread. Messages are not pumped here: the user might close the
// window and the host the plug-in inside.
void TmxDownloadWindow::ShowStatus(const TmyString& line1, const TmyString& line2) {
  line1_.SetText(line1);
  line2_.SetText(line2);
  bar_->SetCaption(line1 + "\r\n" + line2);
  PaintNow();
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
  bar_->SetCaption(line1_.Text() + "\r\n" + line2);
  if (Clock::Ticks() - lastPainted_ >= kPaintInterval) PaintNow();
}

void TmxDownloadWindow::ShowWorking(bool working) {
  button_.SetCaption(working ? "Cancel" : "OK");
  bar_->Show(working);
}

void TmxDownloadWindow::Request(DownloadSite site, const TmyString& path) {
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
