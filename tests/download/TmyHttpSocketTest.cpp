#include "download/TmyHttpSocket.h"

#include "download/ServerNames.h"
#include "tests/support/Pump.h"
#include "tests/support/ScriptedServer.h"
#include "tests/support/Test.h"

namespace {

using Reply = ScriptedServer::Reply;
using End = ScriptedServer::End;
using testing::ElementsAreArray;
using Events = std::vector<std::string>;

constexpr uint32_t kTimeOut = 400;  // milliseconds
uint16_t port = 0;

// In pages of its own, which are gone with it: to touch it afterwards ends the test.
struct Request : TmyHttpSocket {
  using TmyHttpSocket::Socket;
  using TmyHttpSocket::TmyHttpSocket;
  static void* operator new(size_t size) { return VirtualAlloc(nullptr, size, MEM_COMMIT, PAGE_READWRITE); }
  static void operator delete(void* object) { VirtualFree(object, 0, MEM_RELEASE); }
};

struct TmyHttpSocketTest : testing::Test {
  // What the request of "/" reports besides progress, up to its end and a time-out longer.
  Events Run(const Reply& reply, const std::string& deletedIn = "none") {
    server_.Answer("/", reply);
    deletedIn_ = deletedIn;
    port = server_.Port();
    return Get("127.0.0.1");
  }
  Events Get(const char* host) {
    events_.clear();
    hasEnded_ = false;
    request_.reset(new Request(kTimeOut));
    request_->connected.Bind<&TmyHttpSocketTest::Connected>(this);
    request_->progress.Bind<&TmyHttpSocketTest::Progress>(this);
    request_->finished.Bind<&TmyHttpSocketTest::Finished>(this);
    request_->closed.Bind<&TmyHttpSocketTest::Closed>(this);
    request_->timedOut.Bind<&TmyHttpSocketTest::TimedOut>(this);
    request_->Get(host, "/");
    PumpUntil([this] {  // events that bring nothing come in between
      if (request_ && request_->Received().empty())
        SendMessageA(request_->Handle(), TmySocket::kEventMessage, request_->Socket(), FD_READ);
      return hasEnded_ || !request_;
    });
    PumpFor(kTimeOut + 100);  // nothing may follow
    return events_;
  }
  void Note(const std::string& event, bool isEnd = false) {
    hasEnded_ |= isEnd;
    events_.push_back(event);
    if (event.starts_with(deletedIn_)) request_.reset();
  }
  void Connected(TmyHttpSocket&) { Note("connected"); }
  void Progress(TmyHttpSocket&) {
    if (deletedIn_ == "progress") Note("progress");
  }
  void Finished(TmyHttpSocket& from) { Note("finished " + std::to_string(from.Body().Size())); }
  void Closed(TmySocket&, int error) { Note(error == WSAECONNREFUSED ? "refused" : "closed", true); }
  void TimedOut(TmyHttpSocket&) { Note("timed out", true); }

  ScriptedServer server_;
  std::unique_ptr<Request> request_;
  Events events_;
  std::string deletedIn_ = "none";
  bool hasEnded_ = false;
};

const std::string kDocument = ScriptedServer::Document(std::string(50000, 'x'));

TEST_F(TmyHttpSocketTest, EveryRequestEndsOnce) {
  const Events finishes = {"connected", "finished 50000", "closed"};
  const Events closes = {"connected", "closed"};
  const Events timesOut = {"connected", "timed out"};
  const std::vector<std::pair<Reply, Events>> cases = {
      {{kDocument}, finishes},
      {{kDocument, End::kStayOpen}, finishes},
      {{kDocument + "more", End::kReset, 1000, 1}, finishes},
      {{kDocument.substr(0, 20000)}, closes},
      {{"HTTP/1.1 200 OK\r\nConte", End::kReset, 5, 50}, closes},
      {{"A\r\n\r\n" + kDocument, End::kRepeat}, timesOut},
      {{"A\r\nContent-Length: 16777217\r\n\r\n", End::kStayOpen}, timesOut},
  };
  for (const auto& [reply, end] : cases) EXPECT_THAT(Run(reply), ElementsAreArray(end)) << reply.bytes.substr(0, 40);
  EXPECT_EQ(server_.Requests().front(),
            "GET / HTTP/1.1\r\nHost: 127.0.0.1\r\nConnection: close\r\nUser-Agent: Marlux 3.00\r\n\r\n");
}

TEST_F(TmyHttpSocketTest, HostsThatAreNotThere) {
  EXPECT_THAT(Get("no such host"), ElementsAreArray({"timed out"}));
  EXPECT_FALSE(request_->IsValid() || request_->Connect("127.0.0.1", port));
  port = std::make_unique<ScriptedServer>()->Port();  // gone again
  EXPECT_THAT(Get("127.0.0.1"), ElementsAreArray({"refused"}));
}

TEST_F(TmyHttpSocketTest, MayBeDeletedInsideEveryCallback) {
  for (const std::string at : {"connected", "progress", "finished", "closed"}) {
    EXPECT_TRUE(Run({kDocument, End::kClose, 10000, 10}, at).back().starts_with(at));
  }
  EXPECT_EQ(Run({"", End::kStayOpen}, "timed out").back(), "timed out");
}

TEST_F(TmyHttpSocketTest, AFullReceiveBufferStopsReadingAndTheEndUntilItIsDrained) {
  server_.Answer("/", {std::string(5 * TmySocket::kBufferLimit / 2, 'x')});
  struct Client : TmyClientSocket {
    using TmyClientSocket::Socket;
    using TmyClientSocket::TmyClientSocket;
    void Closed(int) override { CloseSocket(); }
  } client(SOCK_STREAM, IPPROTO_TCP);
  ASSERT_TRUE(client.Connect("127.0.0.1", server_.Port()));
  client.Send("GET / HTTP/1.1\r\n\r\n");
  for (const LPARAM event : {FD_READ, FD_CLOSE}) {
    PumpFor(500);
    SendMessageA(client.Handle(), TmySocket::kEventMessage, client.Socket(), event);
    EXPECT_EQ(client.Received().size(), TmySocket::kBufferLimit);
    client.TakeReceived(TmySocket::kBufferLimit);
    SendMessageA(client.Handle(), TmySocket::kEventMessage, 0, FD_READ);  // another socket's
    EXPECT_TRUE(client.Received().empty());
  }
  EXPECT_TRUE(PumpUntil([&client] { return !client.IsValid(); }));
  EXPECT_EQ(client.Received().size(), TmySocket::kBufferLimit / 2) << "what waits at the end comes before it";
}

}  // namespace

uint16_t ServerNames::Port() noexcept {
  return port;
}
