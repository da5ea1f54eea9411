#include "tests/support/ScriptedServer.h"

#include <algorithm>
#include <sstream>

ScriptedServer::ScriptedServer(const char* address, uint16_t port) {
  WSADATA winsock;  // stays for as long as the process
  WSAStartup(MAKEWORD(2, 2), &winsock);
  listener_ = socket(AF_INET, SOCK_STREAM, IPPROTO_TCP);
  sockaddr_in at = {};
  at.sin_family = AF_INET;
  at.sin_port = htons(port);
  at.sin_addr.s_addr = inet_addr(address);
  auto* place = reinterpret_cast<sockaddr*>(&at);
  int size = sizeof at;
  if (bind(listener_, place, size) != 0 || listen(listener_, SOMAXCONN) != 0) return;
  getsockname(listener_, place, &size);
  port_ = ntohs(at.sin_port);
  thread_ = std::jthread(&ScriptedServer::Listen, this);
}

ScriptedServer::~ScriptedServer() {
  ends_ = true;
  thread_ = {};
  connections_.clear();
  closesocket(listener_);
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

bool ScriptedServer::IsReady(SOCKET socket) const {
  while (!ends_) {
    fd_set one = {1, {socket}};
    timeval pause = {0, 20000};
    if (select(0, &one, nullptr, nullptr, &pause) != 0) return true;
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
  const auto receive = [&] { return IsReady(client) ? recv(client, bytes, sizeof bytes, 0) : 0; };
  for (int came = 1; came > 0 && !request.ends_with("\r\n\r\n");) {
    came = receive();
    request.append(bytes, static_cast<size_t>(std::max(came, 0)));
  }
  Reply reply = {"HTTP/1.1 404 Not Found\r\nContent-Length: 7\r\n\r\nNothing"};
  {
    const std::lock_guard guard(mutex_);
    requests_.push_back(request);
    std::string path;
    std::istringstream(request) >> path >> path;
    if (const auto found = replies_.find(path); found != replies_.end()) reply = found->second;
  }
  const std::string_view left = reply.bytes;
  size_t at = 0;
  while (at < left.size() && !ends_) {
    Sleep(reply.pause);
    const std::string_view slice = left.substr(at, reply.slice);
    const int sent = send(client, slice.data(), static_cast<int>(slice.size()), 0);
    if (sent < 1) break;
    at += static_cast<size_t>(sent);
    if (reply.end == End::kRepeat) at %= left.size();
  }
  while (reply.end == End::kStayOpen && receive() > 0) {
  }
  const linger hard = {reply.end == End::kReset, 0};
  setsockopt(client, SOL_SOCKET, SO_LINGER, reinterpret_cast<const char*>(&hard), sizeof hard);
  closesocket(client);
}
