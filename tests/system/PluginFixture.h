// Marlux 3. What the tests of the whole plug-in share: a schedule of the test's own, a host, and what a user does.
#pragma once

#include <gmock/gmock.h>

#include "tests/support/EibiLine.h"
#include "tests/support/FakeHost.h"
#include "tests/support/FreshDocumentsFolder.h"

class PluginFixture : public testing::Test {
 public:  // tables of functions reach in
  explicit PluginFixture(const std::string& modulePath = FakeHost::ModulePath());

  static void ForgetSettings() { RegDeleteTreeA(HKEY_CURRENT_USER, "Software\\Corvane Communications"); }
  void WriteSchedule(const std::string& content);
  static std::string Header() { return EibiHeader(); }
  static std::string Line(const char* khz, const char* station) {
    return EibiLine(khz, "0000-2400", "", station) + "\r\n";
  }
  static std::string ThreeBroadcasts();  // 9420, 6005 and 15770.5 kHz, in this order

  // The folder holds the three broadcasts and this archive, which is none: nothing is asked at the start.
  [[nodiscard]] std::string ArchiveFile() const { return documents_.DataFolder() + "\\none.zip"; }

  // Starts an instance and waits until it has painted.
  HWND StartPlugin(uint32_t handle = 7);
  [[nodiscard]] static HWND Grid(HWND window);
  [[nodiscard]] static HWND Panel(HWND window);
  [[nodiscard]] static std::string Counts(HWND window);  // of the strip below the grid

  void Key(HWND window, WPARAM key, LPARAM flags = 1);
  void KeyWhereTheFocusIs(WPARAM key) { Key(GetFocus(), key); }
  // Double clicks from below upwards until a row tunes the host; the frequency, 0 when none did.
  uint32_t DoubleClickLastRow(HWND grid);
  // The panel's second stop, behind the choice of the database.
  void SwitchAutoTuning(HWND window);
  // The media panel's first one that does something: "Record"; while something is recorded "Stop".
  void PressFirstMediaButton(HWND window);
  void Choose(HWND window, const std::string& item);  // from the menu bar, "&" included
  // From the grid's menu by its letter; the menu is opened there on the screen, or by the keyboard.
  void ChooseInGrid(HWND window, char letter, LPARAM at = -1);
  void OpenAbout(HWND window) { Choose(window, "&About"); }

  [[nodiscard]] std::vector<uint32_t> Codes() const;
  [[nodiscard]] std::vector<uint32_t> TunedFrequencies() const;
  [[nodiscard]] std::string DataFile() const { return documents_.DataFolder() + "\\eibi.txt"; }

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
