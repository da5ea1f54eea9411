// Recording through the module: from the grid and by the button, what ends a recording, and the files byte for byte.
#include <filesystem>

#include "tests/system/PluginFixture.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

std::string Bytes(uint32_t number, size_t width) {
  return {reinterpret_cast<const char*>(&number), width};
}

// A recording that is longer than the block it begins with.
std::string Wav(uint32_t rate, uint32_t channels, const std::string& data) {
  const auto size = static_cast<uint32_t>(data.size());
  return "RIFF" + Bytes(40 + size, 4) + "WAVEfmt " + Bytes(20, 4) + Bytes(1, 2) + Bytes(channels, 2) + Bytes(rate, 4) +
         Bytes(rate * channels * 2, 4) + Bytes(channels * 2, 2) + Bytes(16, 2) + Bytes(0, 2) + "\xDE\xAD" + "data" +
         Bytes(size, 4) + data;
}

const std::vector<uint32_t> kStart = {0x800, 0x900, 0xF00, 0x902, 0x1101};

class Recording : public PluginFixture {
 public:  // tables of functions reach in
  void RecordFirstRow(HWND window) {
    Key(Grid(window), VK_HOME);
    const auto menu = [] { return FakeHost::Find("", "#32768"); };
    host_.When([=] { return menu() != nullptr; }, [=] { PostMessageA(menu(), WM_CHAR, 'r', 0); });
    PostMessageA(Grid(window), WM_CONTEXTMENU, 0, -1);
    EXPECT_TRUE(host_.PumpUntil([&] { return Codes() == kStart; }));
  }
  void Send(uint32_t rate, uint32_t channels, uint32_t count, const std::string& samples, uint32_t kind = 3) {
    const std::string block = Bytes(rate, 4) + "????" + Bytes(channels, 4) + Bytes(count, 4) + samples;
    host_.Notify(7, 0xE07, block.data(), kind);
  }
  // Names without the time, and contents, in order; the folder is empty afterwards.
  std::vector<std::pair<std::string, std::string>> TakeFiles() const {
    std::vector<std::pair<std::string, std::string>> files;
    for (const auto& file : std::filesystem::directory_iterator(documents_.DataFolder() + "\\Recordings")) {
      std::string name = file.path().filename().string();
      files.emplace_back(name.erase(name.find("_20"), 16), ReadFileBytes(file.path().string()));
      std::filesystem::remove(file.path());
    }
    std::sort(files.begin(), files.end());
    return files;
  }
};

}  // namespace

TEST_F(Recording, FromTheGridIsToldAndEndsInEveryWay) {
  const std::string samples = "12345678" + std::string(8000, 'x');
  const struct {
    const char* name;
    std::function<void(HWND)> end;
    bool closes;
  } kEnds[] = {
      {"button", [&](HWND window) { PressFirstMediaButton(window); }, false},
      {"retune", [&](HWND) { host_.Notify(7, 0x800); }, false},
      {"close box", [](HWND window) { PostMessageA(window, WM_SYSCOMMAND, SC_CLOSE, 0); }, true},
      {"exit", [&](HWND window) { Choose(window, "E&xit"); }, true},
      {"host", [&](HWND) { host_.Close(7); }, true},
      {"unload", [&](HWND) { host_.Unload(); }, true},
  };
  for (const auto& way : kEnds) {
    SCOPED_TRACE(way.name);
    const HWND window = StartPlugin();
    RecordFirstRow(window);
    EXPECT_EQ(TextOf(window), "Marlux 3 recording 9420");
    EXPECT_EQ(host_.Calls()[0].a, 9420000u);
    EXPECT_EQ(host_.Calls()[1].a, 1u);
    host_.Clear();
    Key(Grid(window), VK_RETURN);
    EXPECT_THAT(host_.Calls(), IsEmpty()) << "a recording is not disturbed from the grid";
    Send(44100, 1, 4004, samples);
    way.end(window);
    EXPECT_TRUE(host_.PumpUntil([&] { return IsWindow(window) != way.closes; }));
    Send(44100, 1, 4004, samples);
    EXPECT_EQ(Codes(), way.closes ? std::vector<uint32_t>({0x1509, 0x4000}) : std::vector<uint32_t>({0x1101}));
    EXPECT_EQ(TextOf(window), way.closes ? "" : "Marlux 3");
    EXPECT_THAT(TakeFiles(), ElementsAre(std::pair("rec_9420000.wav", Wav(44100, 1, samples))));
    host_.Close(7);
    ASSERT_TRUE(host_.Load());
  }
}

TEST_F(Recording, ByTheButtonFollowsTheFormatAndDropsWhatIsNoneOfIt) {
  const HWND window = StartPlugin();
  const std::string first(6000, 'a'), second(8000, 'b'), third(5000, 'c');
  PressFirstMediaButton(window);
  EXPECT_THAT(Codes(), ElementsAre(0x4002u, 0x1101u));
  EXPECT_EQ(TextOf(window), "Marlux 3");
  host_.Notify(7, 0x800);  // ends only what the plug-in tuned for
  host_.Notify(7, 0xE07, nullptr, 3);
  for (const uint32_t kind : {0u, 4u, 9u}) Send(16000, 1, 3000, first, kind);
  Send(0, 1, 3000, first);
  Send(16000, 0, 3000, first);
  Send(16000, 1, 33554433, "");
  Send(48000, 2, 1500, first);  // before the first data: the same file
  Send(48000, 2, 2000, second);
  KeyWhereTheFocusIs(VK_RIGHT);  // from "Stop" to "Pause"
  KeyWhereTheFocusIs(VK_SPACE);
  Send(48000, 2, 1500, first);
  KeyWhereTheFocusIs(VK_SPACE);
  Send(8000, 1, 2500, third);
  Send(8000, 1, 4, std::string("\0\0\0\x3F\0\0\0\xBF\0\0\x80\x3F\0\0\x80\xBF", 16), 8);
  PressFirstMediaButton(window);
  const std::string floats = "\xFF\x3F\x01\xC0\xFF\x7F\x01\x80";
  EXPECT_THAT(TakeFiles(), ElementsAre(std::pair("rec_6005000.wav", Wav(48000, 2, first + second)),
                                       std::pair("rec_6005000.wav_.wav", Wav(8000, 1, third + floats))));
}

TEST_F(Recording, FromTheGridOutlivesAChangeOfFormatUntilTheHostRetunesOrCloses) {
  for (const bool closes : {false, true}) {
    const HWND window = StartPlugin();
    RecordFirstRow(window);
    Send(44100, 1, 3000, std::string(6000, 'a'));
    if (closes) host_.During(0x1101, [&] { host_.Close(7); });
    Send(8000, 1, 3000, std::string(6000, 'b'));
    EXPECT_EQ(IsWindow(window), !closes);
    EXPECT_EQ(TextOf(window), closes ? "" : "Marlux 3 recording 9420");
    host_.Notify(7, 0x800);
    Send(8000, 1, 3000, std::string(6000, 'c'));
    EXPECT_EQ(TakeFiles().size(), closes ? 1u : 2u);
    host_.Close(7);
  }
}
