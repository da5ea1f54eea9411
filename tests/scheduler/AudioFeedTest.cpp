// Files that are full; what comes through the host's notification is tested with the whole plug-in.
#include "scheduler/AudioFeed.h"

#include <gtest/gtest.h>

#include "plugin/HostLink.h"
#include "tests/support/TestEnvironment.h"

namespace {

struct Owner {
  std::string next;
  void FileFull(const TmyString& name) { next = name.Chars(); }
};

}  // namespace

TEST(AudioFeed, AFullFileIsClosedAndTheNextOneLosesNothing) {
  const TemporaryFolder folder;
  const TmyWindowBase::Hold hold;
  auto* const window = new TmyComponent("", WS_POPUP, 0, 0, 0, 600, 100, nullptr);
  auto* const recorder = new TmyMediaPlayer(*window);
  AudioFeed feed(*recorder, 8000);
  Owner owner;
  feed.fileFull.Bind<&Owner::FileFull>(&owner);
  recorder->StartRecording(folder.File("a.wav").c_str(), 48000, 2, 16);
  // Two channels: 1000 floats give as many samples, and zeros up to 4000 bytes.
  std::vector<uint32_t> block = {48000, 0, 2, 1000};
  block.resize(1004, 0x3F000000);  // 0.5
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(owner.next, "");
    feed.Feed(HostNotification::kAudioFloat, block.data());
  }
  EXPECT_EQ(owner.next, folder.File("a.wav_.wav"));
  recorder->StopRecording();
  std::string data;
  for (int i = 0; i < 1000; ++i) data += "\xFF\x3F";
  data.resize(4000);
  EXPECT_EQ(ReadFileBytes(folder.File("a.wav")).substr(44), std::string("\x40\x1F\0\0", 4) + data + data);
  const std::string next = ReadFileBytes(owner.next);
  EXPECT_EQ(next.substr(20, 8), std::string("\1\0\2\0\x80\xBB\0\0", 8));
  EXPECT_EQ(next.substr(44, 4004), std::string("\xA0\x0F\0\0", 4) + data);
  window->Destroy();
}
