// Recording through the module: what starts it, what ends it, and the files byte for byte.
#include <filesystem>

#include "tests/system/PluginFixture.h"

using testing::Pair;

namespace {

const std::string kFirst(6000, 'a'), kSecond(8000, 'b');

struct Recording : PluginFixture {
  // A recording that is longer than the block it begins with.
  static std::string Wav(uint32_t rate, uint32_t channels, const std::string& data) {
    const auto size = static_cast<uint32_t>(data.size());
    return "RIFF" + Words({40 + size}) + "WAVEfmt " + Words({20, channels << 16 | 1, rate, rate * channels * 2}) +
           Words({16 << 16 | channels * 2, 0xADDE0000}) + "data" + Words({size}) + data;
  }
  // Names without the time, and contents; the folder is empty afterwards.
  std::map<std::string, std::string> TakeFiles() const {
    std::map<std::string, std::string> files;
    for (const auto& file : std::filesystem::directory_iterator(documents_.DataFolder() + "\\Recordings")) {
      std::string name = file.path().filename().string();
      files[name.erase(name.find("_20"), 16)] = ReadFileBytes(file.path().string());
      std::filesystem::remove(file.path());
    }
    return files;
  }
};

}  // namespace

TEST_F(Recording, FromTheGridIsToldAndEndsInEveryWay) {
  const struct {
    const char* name;
    std::function<void(HWND)> end;
    std::vector<uint32_t> codes;
  } kEnds[] = {
      {"button", [&](HWND window) { PressFirstMediaButton(window); }, {0x1101}},
      {"retune", [&](HWND) { host_.Notify(7, 0x800); }, {0x1101}},
      {"shutdown", [&](HWND window) { SendMessageA(window, WM_ENDSESSION, TRUE, 0); }, {0x1101}},
      {"host", [&](HWND) { host_.Close(7); }, {0x1509, 0x4000}},
      {"unload",
       [&](HWND) {
         host_.Unload();
         EXPECT_EQ(GetModuleHandleA("marlux3.dll"), nullptr);
         EXPECT_THAT(FakeHost::TopWindows(), IsEmpty());
       },
       {0x1509, 0x4000}},
      {"told of a next file",
       [&](HWND) {
         host_.During(0x1101, [&] { host_.Close(7); });
         Send(9000, 1, 3000, kFirst);
       },
       {0x1101, 0x1509, 0x4000}},
  };
  for (const auto& way : kEnds) {
    SCOPED_TRACE(way.name);
    const HWND window = StartPlugin();
    Key(Grid(window), VK_HOME);
    ChooseInGrid(window, 'r');
    EXPECT_THAT(Codes(), ElementsAre(0x800, 0x900, 0xF00, 0x902, 0x1101));
    Send(44100, 1, 3000, kFirst);
    Send(8000, 1, 4000, kSecond);
    EXPECT_EQ(TextOf(window), "Marlux 3 recording 9420");
    host_.Clear();
    Key(Grid(window), VK_RETURN);  // the grid does not disturb a recording
    way.end(window);
    PumpUntil([&] { return TextOf(window) != "Marlux 3 recording 9420"; });
    EXPECT_EQ(Codes(), way.codes);
    EXPECT_EQ(TextOf(window), way.codes.size() == 1 ? "Marlux 3" : "");
    Send(8000, 1, 4000, kSecond);
    EXPECT_THAT(TakeFiles(), ElementsAre(Pair("rec_9420000.wav", Wav(44100, 1, kFirst)),
                                         Pair("rec_9420000.wav_.wav", Wav(8000, 1, kSecond))));
    host_.Close(7);
    ASSERT_TRUE(host_.Load());
  }
}

TEST_F(Recording, EndedInsideItsBeginningLeavesNoTitle) {
  const HWND window = StartPlugin();
  host_.During(0x1101, [&] { host_.Notify(7, 0x800); });
  Key(Grid(window), VK_HOME);
  ChooseInGrid(window, 'r');
  EXPECT_THAT(Codes(), ElementsAre(0x800, 0x900, 0xF00, 0x902, 0x1101, 0x1101));
  EXPECT_EQ(TextOf(window), "Marlux 3");
  Key(Grid(window), VK_RETURN);
  EXPECT_EQ(Codes().size(), 10u) << "the grid tunes again";
}

TEST_F(Recording, ByTheButtonTakesTheFirstFormatAndDropsWhatIsNone) {
  const HWND window = StartPlugin();
  PressFirstMediaButton(window);
  EXPECT_THAT(Codes(), ElementsAre(0x4002u, 0x1101u));
  EXPECT_EQ(TextOf(window), "Marlux 3");
  host_.Notify(7, 0x800);  // ends only what the plug-in tuned for
  host_.Notify(7, 0xE07, nullptr, 3);
  const uint32_t kNone[][4] = {
      {16000, 1, 3000, 4}, {0, 1, 3000, 3}, {16000, 0, 3000, 3}, {16000, 2, 0x80000000, 3}, {16000, 0x10001, 1, 3}};
  for (const auto& [rate, channels, count, kind] : kNone) Send(rate, channels, count, kFirst, kind);
  Send(48000, 2, 1500, kFirst);
  Send(48000, 2, 2, std::string("\0\0\0\x3F\0\0\x80\xBF", 8), 8);  // 0.5, -1
  PressFirstMediaButton(window);
  PressFirstMediaButton(window);  // plays it
  EXPECT_EQ(host_.Calls().back().a, 1u);
  host_.Clear();
  host_.Close(7);
  EXPECT_THAT(Codes(), ElementsAre(0x1101u, 0x1509u, 0x4000u));
  const std::string floats("\xFF\x3F\x01\x80\0\0\0\0", 8);
  EXPECT_THAT(TakeFiles(), ElementsAre(Pair("rec_6005000.wav", Wav(48000, 2, kFirst + floats))));
}

TEST_F(Recording, EachInstanceHasAudioOfItsOwnUntilItsEnd) {
  const std::map<uint32_t, std::string> names = {
      {7, "rec_9420000.wav"}, {8, "rec_6005000.wav"}, {9, "rec_15770500.wav"}};
  for (const auto& [handle, name] : names) {
    const HWND window = StartPlugin(handle);
    Key(Grid(window), VK_HOME);
    for (uint32_t row = 7; row < handle; ++row) Key(Grid(window), VK_DOWN);
    ChooseInGrid(window, 'r');
  }
  std::map<std::string, std::string> expected;
  for (const uint32_t closed : {8u, 9u, 7u}) {
    for (const auto& [handle, name] : names) Send(8000, 1, 4000, std::string(8000, name[4]), 3, handle);
    host_.Close(closed);
    const std::string& name = names.at(closed);
    expected[name] = Wav(8000, 1, std::string(8000 * (expected.size() + 1), name[4]));
  }
  EXPECT_EQ(TakeFiles(), expected);
}
