// Changes of the file and blocks that end early; the rest of the way is tested with the whole plug-in.
#include "scheduler/AudioFeed.h"

#include "tests/support/Test.h"

struct AudioFeedTest : testing::Test {
  AudioFeedTest() {
    recorder_->StartRecording(folder_.File("a.wav").c_str(), 48000, 2, 16);
    feed_.fileFailed.Bind<&AudioFeedTest::Failed>(this);
    feed_.fileChanged.Bind<&AudioFeedTest::Changed>(this);
  }
  ~AudioFeedTest() override { window_->Destroy(); }
  void Failed(const TmyString& next) { told_ += std::string(next.FileName().View()) + " failed, "; }
  void Changed() { told_ += std::to_string(recorder_->StateCode()); }
  void Send(uint32_t rate, uint32_t channels, uint32_t count, char byte) {
    std::string block(16 + channels * count * 2, byte);
    const uint32_t header[] = {rate, 0, channels, count};
    feed_.Feed(3, block.replace(0, 16, reinterpret_cast<const char*>(header), 16).data());
  }
  std::string Data(const char* name, uint32_t count) const {
    return ReadFileBytes(folder_.File(name)).substr(44, count);
  }

  TemporaryFolder folder_;
  TmyComponent* const window_ = new TmyComponent("", WS_POPUP, 0, 0, 0, 600, 100, nullptr);
  TmyMediaPlayer* const recorder_ = new TmyMediaPlayer(*window_);
  AudioFeed feed_{*recorder_, 8000};
  std::string told_;
};

TEST_F(AudioFeedTest, AFullFileIsClosedAndTheNextOneLosesNothing) {
  TmyControl* const button = recorder_->ButtonAt(TmyMediaPlayer::kStop);
  recorder_->FocusDrawn(button);
  for (const char byte : {'a', 'b', 'c'}) Send(48000, 2, 1000, byte);
  EXPECT_EQ(recorder_->FocusedControl(), button) << "though it was disabled in between";
  recorder_->StopRecording();
  EXPECT_EQ(Data("a.wav", 9000), std::string("\x40\x1F\0\0", 4) + std::string(4000, 'a') + std::string(4000, 'b'));
  EXPECT_EQ(Data("a.wav_.wav", 4004), std::string("\xA0\x0F\0\0", 4) + std::string(4000, 'c'));
}

TEST_F(AudioFeedTest, ANextFileThatCannotBeMadeEndsTheRecordingAndSaysSo) {
  CreateDirectoryA(folder_.File("a.wav_.wav").c_str(), nullptr);
  Send(48000, 2, 1100, 'a');
  for (int i = 0; i < 2; ++i) Send(8000, 1, 100, 'b');
  EXPECT_EQ(told_, "3a.wav_.wav failed, ");
  EXPECT_EQ(Data("a.wav", 9000), std::string("\x30\x11\0\0", 4) + std::string(4400, 'a'));
}

TEST_F(AudioFeedTest, WhatABlockOfTwoChannelsDoesNotHaveIsSilence) {
  constexpr uint32_t kPage = 4096, kThere = 7000;
  auto* const pages = static_cast<char*>(VirtualAlloc(nullptr, 3 * kPage, MEM_RESERVE, PAGE_NOACCESS));
  VirtualAlloc(pages, kPage, MEM_COMMIT, PAGE_EXECUTE_READWRITE);  // two regions
  VirtualAlloc(pages + kPage, kPage, MEM_COMMIT, PAGE_READWRITE);
  memset(pages, 'a', 2 * kPage);
  const uint32_t header[] = {48000, 0, 2, 2000};
  char* const block = pages + 2 * kPage - kThere - sizeof header;
  feed_.Feed(3, memcpy(block, header, sizeof header));
  recorder_->StopRecording();
  std::string data(kThere, 'a');
  data.resize(8000);
  EXPECT_TRUE(Data("a.wav", 9000) == std::string("\x40\x1F\0\0", 4) + data);
  VirtualFree(pages, 0, MEM_RELEASE);
}
