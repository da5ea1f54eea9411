// Marlux 3. Fetches one document over HTTP.
//
//   auto page = std::make_unique<TmyHttpSocket>(30000);
//   page->finished.Bind<&Window::PageFinished>(this);    // page.Body(), page.HeaderLines()
//   page->closed.Bind<&Window::PageClosed>(this);
//   page->timedOut.Bind<&Window::PageTimedOut>(this);
//   page->Get(ServerNames::HfccHost(), "/data/index.html");
//
// A request ends in exactly one of three ways, and nothing is reported after it:
// - `finished` when the document is whole, then `closed` with 0 from a message of its own, whatever the server does
//   with the connection (it is closed on our side before `finished`);
// - `closed` alone: no connection, with the error, or the server closed before the document was whole. No time-out
//   follows, so an owner that waits for documents has to act on it;
// - `timedOut`: no data for so long, no such host, a header above 64 KiB or a body above 16 MiB, no timer to be had.
// An answer that announces 0 bytes, or no length at all, never finishes: it ends in one of the other ways.
// Every callback may delete or destroy the object. One object, one request.
#pragma once

#include "download/HttpResponse.h"
#include "download/TmyClientSocket.h"

class TmyHttpSocket : public TmyClientSocket {
 public:
  static constexpr uint32_t kBodyLimit = 0x1000000;  // 16 MiB

  explicit TmyHttpSocket(uint32_t timeout);  // milliseconds without data

  TmyEvent<TmyHttpSocket&> connected;  // before the request goes out
  TmyEvent<TmyHttpSocket&> progress;   // data came and more is to come
  TmyEvent<TmyHttpSocket&> finished;
  TmyEvent<TmyHttpSocket&> timedOut;

  void Get(const TmyString& host, const TmyString& path);

  // The first line holds the status; statuses are not looked at here: the page of a 404 is a document, too.
  [[nodiscard]] const TmyStringList& HeaderLines() const noexcept { return response_.HeaderLines(); }
  [[nodiscard]] const TmyStream& Body() const noexcept { return body_; }  // Data(), Size()
  // Bytes still to come, of the document or, when it comes in chunks, of the current chunk.
  [[nodiscard]] uint32_t StillExpected() const noexcept { return response_.StillExpected(); }
  [[nodiscard]] bool IsSizeKnown() const noexcept { return response_.IsSizeKnown(); }

  LRESULT WndProc(UINT message, WPARAM wParam, LPARAM lParam) override;
  void Timer(uintptr_t id) override;
  void Connected(int error) override;
  void Closed(int error) override;
  void DataReceived(int error) override;
  virtual void Finished();
  virtual void TimedOut();
  virtual void Progress();

 private:
  static constexpr UINT kReportClosed = WM_USER + 1;
  static constexpr UINT kReportTimedOut = WM_USER + 2;
  static constexpr UINT_PTR kTimer = 1;

  void StartTimer() noexcept;
  void StopTimer() noexcept;
  void EndRequest() noexcept;
  void GiveUp();
  void Complete();

  uint32_t timeout_;
  bool isTimed_ = false;    // the timer runs, or its end is on its way
  uint32_t lastHeard_ = 0;  // ticks
  TmyString host_;
  TmyString path_;
  TmyStream body_{4096, kBodyLimit};
  HttpResponse response_{body_};
};
