#include "tests/support/ScriptedServer.h"

#include <algorithm>

namespace {

constexpr std::string_view kHeaderEnd = "\r\n\r\n";

void Close(SOCKET socket, bool reset) {
  if (const linger hard = {1, 0}; reset) {
    setsockopt(socket, SOL_SOCKET, SO_LINGER, reinterpret_cast<const char*>(&hard), sizeof hard);
  }
  closesocket(socket);
}

}  // namespace

ScriptedServer::ScriptedServer(const char* address, uint16_t port) {
  WSAStartup(MAKEWORD(2, 2), &winsock_);
  listener_ = socket(AF_INET, SOCK_STREAM, IPPROTO_TCP);
  sockaddr_in at = {};
  at.sin_family = AF_INET;
  at.sin_port = htons(port);
  at.sin_addr.s_addr = inet_addr(address);
  int size = sizeof at;
  auto* place = reinterpret_cast<sockaddr*>(&at);
  if (bind(listener_, place, size) != 0 || listen(listener_, SOMAXCONN) != 0) return;
  getsockname(listener_, place, &size);
  port_ = ntohs(at.sin_port);
  thread_ = std::thread(&ScriptedServer::Listen, this);
}

ScriptedServer::~ScriptedServer() {
  ends_ = true;
  if (thread_.joinable()) thread_.join();
  for (std::thread& connection : connections_) connection.join();
  closesocket(listener_);
  WSACleanup();
}

void ScriptedServer::Answer(const std::string& path, Reply reply) {
  const std::lock_guard guard(mutex_);
  replies_[path] = std::move(reply);
}

std::vector<std::string> ScriptedServer::Requests() {
  const std::lock_guard guard(mutex_);
  return requests_;
}

std::string ScriptedServer::Document(const std::string& body) {
  return "HTTP/1.1 200 OK\r\nContent-Length: " + std::to_string(body.size()) + "\r\n\r\n" + body;
}

bool ScriptedServer::IsReady(SOCKET socket, bool toWrite) const {
  while (!ends_) {
    fd_set one = {1, {socket}};
    timeval pause = {0, 20000};
    if (select(0, toWrite ? nullptr : &one, toWrite ? &one : nullptr, nullptr, &pause) != 0) return true;
  }
  return false;
}

void ScriptedServer::Listen() {
  while (IsReady(listener_))
    connections_.emplace_back(&ScriptedServer::Serve, this, accept(listener_, nullptr, nullptr));
}

void ScriptedServer::Serve(SOCKET client) {
  std::string request;
  char bytes[4096];
  while (!request.ends_with(kHeaderEnd) && IsReady(client)) {
    const int came = recv(client, bytes, sizeof bytes, 0);
    if (came < 1) return Close(client, false);
    request.append(bytes, static_cast<size_t>(came));
  }
  Reply reply = {"HTTP/1.1 404 Not Found\r\nContent-Length: 7\r\n\r\nNothing"};
  {
    const std::lock_guard guard(mutex_);
    requests_.push_back(request);
    const size_t path = std::min(request.find(' ') + 1, request.size());
    const auto found = replies_.find(request.substr(path, request.find(' ', path) - path));
    if (found != replies_.end()) reply = found->second;
  }
  while (Send(client, reply) && reply.end == End::kRepeat) {
  }
  while (reply.end == End::kStayOpen && IsReady(client) && recv(client, bytes, sizeof bytes, 0) > 0) {
  }
  Close(client, reply.end == End::kReset);
}

bool ScriptedServer::Send(SOCKET client, const Reply& reply) const {
  const BOOL atOnce = TRUE;
  setsockopt(client, IPPROTO_TCP, TCP_NODELAY, reinterpret_cast<const char*>(&atOnce), sizeof atOnce);
  u_long nonBlocking = 1;  // a client that does not read must not hold us
  ioctlsocket(client, static_cast<long>(FIONBIO), &nonBlocking);
  for (size_t at = 0; at < reply.bytes.size();) {
    if (reply.pause > 0) Sleep(reply.pause);
    if (!IsReady(client, true)) return false;
    const size_t count = std::min(reply.slice, reply.bytes.size() - at);
    const int sent = send(client, reply.bytes.data() + at, static_cast<int>(count), 0);
    if (sent < 1 && WSAGetLastError() != WSAEWOULDBLOCK) return false;
    at += static_cast<size_t>(std::max(sent, 0));
  }
  return true;
}
