// Full files; the rest of the way from the host's notification to the file is tested with the whole plug-in.
#include "scheduler/AudioFeed.h"

#include <gtest/gtest.h>

#include "tests/support/TestEnvironment.h"

TEST(AudioFeed, AFullFileIsClosedAndTheNextOneLosesNothing) {
  const TemporaryFolder folder;
  const TmyWindowBase::Hold hold;
  auto* const window = new TmyComponent("", WS_POPUP, 0, 0, 0, 600, 100, nullptr);
  auto* const recorder = new TmyMediaPlayer(*window);
  AudioFeed feed(*recorder, 8000);
  recorder->StartRecording(folder.File("a.wav").c_str(), 48000, 2, 16);
  std::vector<uint32_t> block = {48000, 0, 2, 1000};
  block.resize(1004, 0x3F000000);  // 0.5: two bytes each, and zeros up to 4000 bytes
  for (int i = 0; i < 3; ++i) feed.Feed(8, block.data());
  window->Destroy();
  std::string data;
  for (int i = 0; i < 1000; ++i) data += "\xFF\x3F";
  data.resize(4000);
  EXPECT_EQ(ReadFileBytes(folder.File("a.wav")).substr(44), std::string("\x40\x1F\0\0", 4) + data + data);
  EXPECT_EQ(ReadFileBytes(folder.File("a.wav_.wav")).substr(44, 4004), std::string("\xA0\x0F\0\0", 4) + data);
}
