#include "download/TmyClientSocket.h"

#include <cstring>

namespace {

// The first IPv4 address. A number needs no look-up.
bool Resolve(const TmyString& host, in_addr& address) noexcept {
  address.s_addr = inet_addr(host.Chars());
  if (address.s_addr != INADDR_NONE && address.s_addr != INADDR_ANY) return true;
  const hostent* entry = gethostbyname(host.Chars());  // NOLINT(concurrency-mt-unsafe): its answer is the thread's own
  if (!entry || entry->h_addrtype != AF_INET || !entry->h_addr_list[0]) return false;
  std::memcpy(&address, entry->h_addr_list[0], sizeof address);
  return true;
}

}  // namespace

bool TmyClientSocket::Connect(const TmyString& host, uint16_t port) {
  if (!IsValid()) return false;
  sockaddr_in server = {};
  if (!Resolve(host, server.sin_addr)) {
    CloseSocket();
    return false;
  }
  server.sin_family = AF_INET;
  server.sin_port = htons(port);
  // FD_CONNECT tells the outcome, or the time-out.
  static_cast<void>(connect(Socket(), reinterpret_cast<const sockaddr*>(&server), sizeof server));
  return true;
}
