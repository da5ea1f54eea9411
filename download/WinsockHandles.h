// Marlux 3. Holders of what Winsock gives out: its start-up count and a socket.
#pragma once

#include <winsock2.h>

#include <utility>

// Winsock counts its start-ups; each holder stands for one. When it cannot be started, sockets cannot be made.
class WinsockSession {
 public:
  WinsockSession() noexcept {
    WSADATA data;
    started_ = WSAStartup(MAKEWORD(1, 0), &data) == 0;
  }
  ~WinsockSession() {
    if (started_) WSACleanup();
  }
  WinsockSession(const WinsockSession&) = delete;
  WinsockSession& operator=(const WinsockSession&) = delete;

 private:
  bool started_;
};

class SocketHandle {
 public:
  SocketHandle() noexcept = default;
  explicit SocketHandle(SOCKET socket) noexcept : socket_(socket) {}
  ~SocketHandle() { Close(); }
  SocketHandle(SocketHandle&& other) noexcept : socket_(std::exchange(other.socket_, INVALID_SOCKET)) {}
  SocketHandle& operator=(SocketHandle&&) = delete;

  [[nodiscard]] SOCKET Get() const noexcept { return socket_; }
  [[nodiscard]] bool IsValid() const noexcept { return socket_ != INVALID_SOCKET; }
  void Close() noexcept {
    if (IsValid()) closesocket(std::exchange(socket_, INVALID_SOCKET));
  }

 private:
  SOCKET socket_ = INVALID_SOCKET;
};
