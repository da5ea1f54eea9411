#include "scheduler/TmyMediaPlayer.h"

#include "scheduler/TmyWaveFilePCM.h"
#include "tests/toolkit/ControlFixture.h"

namespace {

using Player = TmyMediaPlayer;

constexpr uint32_t kRate = 8000;

struct MediaPlayerTest : ControlFixture {
  MediaPlayerTest() {
    player_->SetBounds(0, 0, 620, player_->PreferredHeight(620));
    player_->stateChanged.Bind<&MediaPlayerTest::Changed>(this);
  }
  ~MediaPlayerTest() override { Close(); }  // before the folder goes
  void Changed(Player& player) {
    states_.push_back(player.StateCode());
    Tell();
  }
  void Press(Player::Button button) const { player_->ButtonAt(button)->Press(); }
  bool Feed(uint32_t milliseconds) const {
    const std::vector<char> samples(milliseconds * kRate / 500, 3);
    return player_->Write(samples.data(), static_cast<uint32_t>(samples.size())) != 0;
  }
  void MakeFile(uint32_t milliseconds) {
    player_->StartRecording(path_, kRate, 1, 16);
    EXPECT_TRUE(Feed(milliseconds));
    player_->StopRecording();
    states_.clear();
  }

  TemporaryFolder folder_;
  const TmyString path_ = folder_.File(std::string(140, 'n') + ".wav").c_str();  // more than some drivers take
  Player* player_ = new Player(*window_);                                        // belongs to its window
  std::vector<int32_t> states_;
};

TEST_F(MediaPlayerTest, PlaysToTheEndAndAPauseHoldsThePlace) {
  EXPECT_STREQ(player_->TimeText().Chars(), "00:00:00 / 00:00:00");
  MakeFile(2600);
  Press(Player::kPlay);
  EXPECT_TRUE(PumpUntil([&] { return player_->Slider().Position() > 0; })) << "is there a sound device?";
  EXPECT_STREQ(player_->TimeText().Chars(), "00:00:00 / 00:00:02");
  Press(Player::kPause);
  const int64_t at = player_->Slider().Position();
  Sleep(1500);
  Press(Player::kPause);
  EXPECT_TRUE(PumpUntil([&] { return player_->Slider().Position() > at; }));
  EXPECT_LT(player_->Slider().Position(), at + 1000);
  SetFocus(player_->Slider().Handle());
  EXPECT_TRUE(PumpUntil([&] { return player_->StateCode() == Player::kIdle; }));
  EXPECT_EQ(GetFocus(), player_->Handle()) << "the slider is disabled now";
}

TEST_F(MediaPlayerTest, BackAndForwardGoTwoSecondsToWholeOnes) {
  MakeFile(6500);
  Press(Player::kPlay);
  Press(Player::kPause);
  using Case = std::tuple<int64_t, Player::Button, int64_t>;
  for (const auto& [from, button, to] :
       {Case(1500, Player::kBack, 0), Case(5700, Player::kBack, 3000), Case(5700, Player::kForward, 6000)}) {
    player_->Slider().SetPosition(from - 1000);
    Input::Key(player_->Slider(), VK_RIGHT);  // a second
    Press(button);
    EXPECT_EQ(player_->Slider().Position(), to) << from;
  }
  Press(Player::kPause);
  Press(Player::kBack);
  EXPECT_TRUE(PumpUntil([&] { return player_->Slider().Position() > 4000; })) << "plays on from there";
  EXPECT_LT(player_->Slider().Position(), 6000);
  Input::Drag(player_->Slider(), 100, 5, 600, 5);
  EXPECT_TRUE(PumpUntil([&] { return player_->StateCode() == Player::kIdle; }));
}

TEST_F(MediaPlayerTest, OnlyButtonsThatDoSomethingAreEnabled) {
  const auto enabled = [&] {
    std::string shown;
    for (uint32_t i = 0; i < Player::kButtonCount; ++i) shown += player_->ButtonAt(i)->IsEnabled() ? "<>.|>ro"[i] : '-';
    return shown;
  };
  EXPECT_EQ(enabled(), "-----ro");
  MakeFile(3000);
  EXPECT_EQ(enabled(), "->---ro");
  Press(Player::kPlay);
  EXPECT_EQ(enabled(), "<-.|>-o");
  Press(Player::kPause);
  player_->StartRecording(path_, kRate, 1, 16);
  Press(Player::kPause);
  EXPECT_EQ(enabled(), "--.|---");
  Press(Player::kStop);
  EXPECT_EQ(enabled(), "->---ro");
  EXPECT_EQ(states_, (std::vector<int32_t>{1, 2, 3, 4, 0}));
  destroyInEvent_ = true;
  Press(Player::kPlay);
  EXPECT_EQ(window_, nullptr);
  EXPECT_TRUE(DeleteFileA(path_.Chars())) << "the device holds the file";
}

TEST_F(MediaPlayerTest, WhatCannotBeOpenedIsSilent) {
  const TmyString nowhere = "C:\\no such folder\\x.wav";
  player_->SetFileName(nowhere);
  Press(Player::kPlay);
  EXPECT_TRUE(states_.empty());
  EXPECT_FALSE(Feed(20));
  player_->StartRecording(nowhere, kRate, 1, 16);
  EXPECT_FALSE(Feed(20));
  EXPECT_EQ(states_, std::vector<int32_t>{Player::kRecording});
}

}  // namespace
