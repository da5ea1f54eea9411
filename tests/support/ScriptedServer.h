// Marlux 3. A web server of a test's own that says exactly what it is told, in slices of any size, and ends its
// connections as it is told. Each connection has a thread.
//
//   ScriptedServer server;
//   server.Answer("/dx/eibi.txt", {"HTTP/1.1 200 OK\n\n", ScriptedServer::End::kStayOpen, 1});
#pragma once

#include <winsock2.h>

#include <atomic>
#include <cstdint>
#include <map>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

class ScriptedServer {
 public:
  enum class End { kClose, kReset, kStayOpen, kRepeat };  // kRepeat: the bytes again and again until the client goes

  struct Reply {
    std::string bytes;
    End end = End::kClose;
    size_t slice = SIZE_MAX;  // bytes of one send
    uint32_t pause = 0;       // milliseconds before each
  };

  // Port 0 takes a free one. Listens at once.
  explicit ScriptedServer(const char* address = "127.0.0.1", uint16_t port = 0);
  ~ScriptedServer();  // ends every connection

  [[nodiscard]] uint16_t Port() const noexcept { return port_; }  // 0: it could not listen
  void Answer(const std::string& path, Reply reply);              // for all requests of the path; others get a 404
  [[nodiscard]] std::vector<std::string> Requests();              // as they came, header and all
  // A whole 200 answer with its length.
  [[nodiscard]] static std::string Document(const std::string& body);

 private:
  void Listen();
  void Serve(SOCKET client);
  [[nodiscard]] bool IsReady(SOCKET socket) const;  // false: the server ends

  SOCKET listener_;
  uint16_t port_ = 0;
  std::atomic<bool> ends_ = false;
  std::mutex mutex_;
  std::map<std::string, Reply> replies_;
  std::vector<std::string> requests_;
  std::vector<std::jthread> connections_;  // of the listener's thread alone, until that has ended
  std::jthread thread_;
};
