#include "download/TmySocket.h"

#include <algorithm>

TmySocket::TmySocket(int type, int protocol)
    : TmyWindowBase("", WS_POPUP, 0, 0, 0, 0, 0, nullptr), socket_(socket(AF_INET, type, protocol)) {
  if (!IsValid()) return;
  const long events = FD_READ | FD_WRITE | FD_ACCEPT | FD_CONNECT | FD_CLOSE;
  if (WSAAsyncSelect(Socket(), Handle(), kEventMessage, events) != 0) CloseSocket();
}

TmySocket::~TmySocket() {
  CloseSocket();
}

void TmySocket::CloseSocket() noexcept {
  socket_.Close();
}

void TmySocket::Send(std::string_view bytes) {
  queued_.Write(bytes.data(), static_cast<uint32_t>(bytes.size()));
  if (IsValid() && !writeBlocked_) SendMessageA(Handle(), kEventMessage, Socket(), FD_WRITE);
}

std::string_view TmySocket::Received() const noexcept {
  return {reinterpret_cast<const char*>(received_.Data()), received_.Size()};
}

// Winsock tells of waiting bytes again only after a read: when none was made for want of room, we tell ourselves.
void TmySocket::TakeReceived(uint32_t count) {
  received_.Read(nullptr, std::min(count, received_.Size()), true);
  if (!readStopped_ || received_.Size() >= kBufferLimit) return;
  readStopped_ = false;
  if (IsValid()) PostMessageA(Handle(), kEventMessage, Socket(), FD_READ);
}

// An event that was posted before the socket was closed carries a socket that is no longer ours.
LRESULT TmySocket::WndProc(UINT message, WPARAM wParam, LPARAM lParam) {
  const LRESULT result = TmyWindowBase::WndProc(message, wParam, lParam);
  if (message == WM_DESTROY) {
    CloseSocket();  // at once: the object may have to wait for its end
  } else if (message == kEventMessage && IsValid() && wParam == Socket()) {
    SocketEvent(WSAGETSELECTEVENT(lParam), WSAGETSELECTERROR(lParam));
  }
  return result;
}

void TmySocket::SocketEvent(WORD event, int error) {
  switch (event) {
    case FD_READ:
      Receive();
      DataReceived(error);
      break;
    case FD_WRITE:
      writeBlocked_ = false;
      SendQueued();
      break;
    case FD_ACCEPT:
      Accepted(error);
      break;
    case FD_CONNECT:
      writeBlocked_ = true;  // the first FD_WRITE releases it
      Connected(error);
      break;
    case FD_CLOSE:
      PeerClosed(error);
      break;
    default:
      break;
  }
}

// What waits, in one call, as far as there is room. Returns the bytes that came.
uint32_t TmySocket::Receive() {
  u_long waiting = 0;
  if (ioctlsocket(Socket(), static_cast<long>(FIONREAD), &waiting) != 0) return 0;
  const uint32_t before = received_.Size();
  received_.SetSize(before + std::min<uint32_t>(waiting, kBufferLimit - before));
  const uint32_t room = received_.Size() - before;
  readStopped_ = waiting > 0 && room == 0;
  if (room == 0) return 0;
  const int came = recv(Socket(), reinterpret_cast<char*>(received_.Data() + before), static_cast<int>(room), 0);
  const uint32_t count = came < 1 ? 0 : static_cast<uint32_t>(came);
  received_.SetSize(before + count);
  return count;
}

// One call an event; what is left waits for the next event or for the owner's next bytes.
void TmySocket::SendQueued() {
  if (queued_.Size() == 0) return;
  const int sent = send(Socket(), reinterpret_cast<const char*>(queued_.Data()), static_cast<int>(queued_.Size()), 0);
  if (sent > 0) {
    queued_.Read(nullptr, static_cast<uint32_t>(sent), true);
  } else {
    writeBlocked_ = true;
  }
}

// The end may be reported before the last bytes were read. They come first, a piece a message.
void TmySocket::PeerClosed(int error) {
  if (Receive() == 0) {
    Closed(error);
    return;
  }
  const Presence presence(*this);
  const HWND handle = Handle();
  const SOCKET socket = Socket();
  DataReceived(0);
  if (presence.IsThere()) PostMessageA(handle, kEventMessage, socket, WSAMAKESELECTREPLY(FD_CLOSE, error));
}

void TmySocket::Connected(int /*error*/) {}

void TmySocket::Accepted(int /*error*/) {}

void TmySocket::Closed(int error) {
  closed(*this, error);
}

void TmySocket::Failed() {
  failed(*this);
}

void TmySocket::DataReceived(int /*error*/) {
  dataReceived(*this, received_.Size());
}
