// Marlux 3. What the tests of the whole plug-in share: a schedule of the test's own, a host, and what a user does.
#pragma once

#include "tests/support/EibiLine.h"
#include "tests/support/FakeHost.h"
#include "tests/support/FreshDocumentsFolder.h"
#include "tests/support/Pump.h"
#include "tests/support/Test.h"

class PluginFixture : public testing::Test {
 public:  // tables of functions reach in
  // Of the settings.
  static constexpr char kKey[] = "Software\\Corvane Communications\\Marlux 3";

  explicit PluginFixture(const std::string& modulePath = FakeHost::kModulePath);

  static void ForgetSettings() { RegDeleteTreeA(HKEY_CURRENT_USER, "Software\\Corvane Communications"); }
  void WriteSchedule(const std::string& content) const {
    EXPECT_TRUE(WriteFileBytes(documents_.DataFolder() + "\\eibi.txt", content));
  }
  static std::string Line(const char* khz, const char* station) {
    return EibiLine(khz, "0000-2400", "", station) + "\r\n";
  }
  static std::string ThreeBroadcasts() {
    return EibiHeader() + Line("9420", "Middle") + Line("6005", "Low") + Line("15770.5", "High");
  }
  // The folder holds the three broadcasts and this archive, which is none: nothing is asked at the start.
  [[nodiscard]] std::string ArchiveFile() const { return documents_.DataFolder() + "\\none.zip"; }
  [[nodiscard]] std::string TaskFile() const { return documents_.DataFolder() + "\\tasks.mxt"; }

  // Starts an instance and waits until it has painted.
  HWND StartPlugin(uint32_t handle = 7);
  [[nodiscard]] static HWND Grid(HWND window);
  [[nodiscard]] static HWND Panel(HWND window) { return ChildWindowFromPoint(window, {1, 1}); }

  void Key(HWND window, WPARAM key);
  void KeyWhereTheFocusIs(WPARAM key) { Key(GetFocus(), key); }
  // The panel's second stop, behind the choice of the database.
  void SwitchAutoTuning(HWND window);
  // The media panel's first one that does something: "Record"; while something is recorded "Stop".
  void PressFirstMediaButton(HWND window);
  void Choose(HWND window, const std::string& item);  // from the menu bar, "&" included
  // From the current row's menu; does the other thing as soon as it is chosen.
  void ChooseInGrid(
      HWND window, char letter, const std::function<void()>& then = [] {});
  void OpenAbout(HWND window) { Choose(window, "&About"); }

  [[nodiscard]] std::vector<uint32_t> Codes() const;
  static std::string Words(std::initializer_list<uint32_t> words) {
    return {reinterpret_cast<const char*>(words.begin()), words.size() * 4};
  }
  // A block of audio; `count` is that of each channel.
  void Send(uint32_t rate, uint32_t channels, uint32_t count, const std::string& samples, uint32_t kind = 3,
            uint32_t handle = 7) {
    host_.Notify(handle, 0xE07, (Words({rate, 0xDDDDDDDD, channels, count}) + samples).data(), kind);
  }

  FreshDocumentsFolder documents_;
  FakeHost host_;
};

struct MenuEntry {
  std::string text;
  bool isChecked;
  UINT id;
};
// All entries with those of their submenus behind them, in the order in which they are seen.
[[nodiscard]] std::vector<MenuEntry> Entries(HMENU menu);
