// Marlux 3. A socket that works on the thread of its window: a hidden window gets the socket's events as messages, so
// that nothing blocks and nothing needs a lock.
//
// The owner keeps the object by unique_ptr or in an owning list and deletes it, or calls Destroy() on an object made
// with `new`. Either is allowed inside every callback: nothing of the object is touched after a callback when it has
// gone there. No failure is worded here: an object whose socket could not be had stays usable and does nothing.
#pragma once

#include <winsock2.h>

#include "download/WinsockHandles.h"
#include "foundation/TmyStream.h"
#include "toolkit/TmyEvent.h"
#include "toolkit/TmyWindowBase.h"

class TmySocket : public TmyWindowBase {
 public:
  static constexpr UINT kEventMessage = WM_USER;  // wParam: the socket; lParam: event, and error in the high word
  static constexpr uint32_t kBufferStart = 16384;
  static constexpr uint32_t kBufferLimit = 0x100000;

  TmySocket(int type, int protocol);  // SOCK_STREAM, IPPROTO_TCP
  ~TmySocket() override;

  TmyEvent<TmySocket&, uint32_t> dataReceived;  // bytes in the receive buffer now
  TmyEvent<TmySocket&, int> closed;             // 0, or Winsock's error
  TmyEvent<TmySocket&> failed;                  // for the owner's use: raised by Failed() alone

  [[nodiscard]] bool IsValid() const noexcept { return socket_.IsValid(); }
  void CloseSocket() noexcept;  // no event arrives any more
  // Queues bytes and sends them as soon as the connection takes them; what passes the queue's limit is dropped.
  void Send(std::string_view bytes);
  [[nodiscard]] std::string_view Received() const noexcept;
  // Takes bytes from the front of the receive buffer. A full buffer stopped the reading: this lets it go on.
  void TakeReceived(uint32_t count);

  LRESULT WndProc(UINT message, WPARAM wParam, LPARAM lParam) override;

  virtual void Connected(int error);
  virtual void Closed(int error);        // raises `closed`
  virtual void Failed();                 // raises `failed`
  virtual void DataReceived(int error);  // raises `dataReceived`
  virtual void Accepted(int error);

 protected:
  // Tells after a callback whether the object is still there, without touching it.
  class Presence {
   public:
    explicit Presence(const TmySocket& socket) noexcept : handle_(socket.Handle()), socket_(&socket) {}
    [[nodiscard]] bool IsThere() const noexcept { return handle_ && FromHandle(handle_) == socket_; }

   private:
    HWND handle_;
    const TmyWindowBase* socket_;  // compared, never followed
  };

  [[nodiscard]] SOCKET Socket() const noexcept { return socket_.Get(); }

 private:
  void SocketEvent(WORD event, int error);
  uint32_t Receive();
  void SendQueued();
  void PeerClosed(int error);

  WinsockSession session_;  // before the socket: it goes last
  SocketHandle socket_;
  TmyStream received_{kBufferStart, kBufferLimit};
  TmyStream queued_{kBufferStart, kBufferLimit};
  bool writeBlocked_ = false;  // until Winsock says that the socket is writable
  bool readStopped_ = false;   // the receive buffer was full
};
