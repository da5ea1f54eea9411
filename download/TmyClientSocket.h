// Marlux 3. A socket that connects to a server.
#pragma once

#include "download/TmySocket.h"
#include "foundation/TmyString.h"

class TmyClientSocket : public TmySocket {
 public:
  using TmySocket::TmySocket;

  // Looks the host up, which blocks, and begins to connect: Connected(error) tells how it went. False, with an invalid
  // socket, when the look-up fails or the socket was invalid before.
  bool Connect(const TmyString& host, uint16_t port);
};
