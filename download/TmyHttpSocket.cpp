#include "download/TmyHttpSocket.h"

#include "download/ServerNames.h"

TmyHttpSocket::TmyHttpSocket(uint32_t timeout) : TmyClientSocket(SOCK_STREAM, IPPROTO_TCP), timeout_(timeout) {}

void TmyHttpSocket::Get(const TmyString& host, const TmyString& path) {
  host_ = host;
  path_ = path;
  response_.Restart();
  StartTimer();
  Connect(host, ServerNames::Port());  // a host that is not found stays silent until the time-out
}

void TmyHttpSocket::StartTimer() noexcept {
  isTimed_ = SetTimer(Handle(), kTimer, timeout_, nullptr) != 0;
}

void TmyHttpSocket::StopTimer() noexcept {
  KillTimer(Handle(), kTimer);
  isTimed_ = false;
}

// Neither the server nor the clock is heard any more.
void TmyHttpSocket::EndRequest() noexcept {
  StopTimer();
  CloseSocket();
}

LRESULT TmyHttpSocket::WndProc(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_TIMER) {
    Timer(wParam);
    return 0;
  }
  if (message == kReportClosed) {
    Closed(0);
    return 0;
  }
  return TmyClientSocket::WndProc(message, wParam, lParam);
}

void TmyHttpSocket::Timer(uintptr_t id) {
  if (id != kTimer || !isTimed_) return;  // a tick that was under way when the timer was stopped
  EndRequest();
  TimedOut();
}

void TmyHttpSocket::Connected(int error) {
  StopTimer();
  if (error != 0) {
    Closed(error);
    return;
  }
  const Presence presence(*this);
  connected(*this);
  if (!presence.IsThere() || !IsValid()) return;
  response_.Restart();
  body_.Clear();
  StartTimer();
  Send(Formatted("GET %s HTTP/1.1\r\nHost: %s\r\nConnection: close\r\nUser-Agent: Marlux 3.00\r\n\r\n", path_.Chars(),
                 host_.Chars())
           .View());
}

void TmyHttpSocket::Closed(int error) {
  EndRequest();
  TmyClientSocket::Closed(error);
}

void TmyHttpSocket::DataReceived(int /*error*/) {
  StopTimer();
  if (Received().empty()) return;
  TakeReceived(response_.Feed(Received()));
  if (response_.IsDone()) {
    Complete();
  } else if (response_.IsFailed()) {
    EndRequest();
    TimedOut();
  } else {
    StartTimer();
    Progress();  // last: it may delete us
  }
}

// The server may close first, later or never: we close, and our owner hears of it in any case, but not inside
// Finished(), where it is busy with the document.
void TmyHttpSocket::Complete() {
  EndRequest();
  const Presence presence(*this);
  const HWND handle = Handle();
  Finished();
  if (presence.IsThere()) PostMessageA(handle, kReportClosed, 0, 0);
}

void TmyHttpSocket::Finished() {
  finished(*this);
}

void TmyHttpSocket::TimedOut() {
  timedOut(*this);
}

void TmyHttpSocket::Progress() {
  progress(*this);
}
