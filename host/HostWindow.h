// Marlux host. The window: what the plug-in set, a field to retune, the instances, the audio source and the log.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "host/LogView.h"
#include "host/Script.h"
#include "host/Session.h"
#include "host/Theme.h"

class HostWindow {
 public:
  HostWindow(Session& session, Script& script) : session_(session), script_(script), log_(theme_, session.Log()) {}
  HostWindow(const HostWindow&) = delete;
  HostWindow& operator=(const HostWindow&) = delete;
  ~HostWindow();

  [[nodiscard]] bool Create(bool minimized);
  [[nodiscard]] HWND Window() const { return window_; }

 private:
  // A button that is drawn by us; those of one group show which of them is chosen.
  struct Button {
    int id;
    const char* text;
    HWND window;
  };

  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM word, LPARAM data);
  LRESULT Handle(UINT message, WPARAM word, LPARAM data);
  void Tick();
  void CreateControls();
  void Command(int id, int event);
  void AudioCommand(int id);
  void RetuneFromField();
  void CopyLog() const;
  void RefreshFromSession();
  [[nodiscard]] uint32_t ChosenHandle() const;  // 0 when the list is empty
  [[nodiscard]] bool IsChosen(int id) const;

  // HostWindowLayout.cpp
  void Layout();
  void PlaceRow(int firstId, int lastId, int left, int top, int width);
  void Paint();
  void PaintHeader(HDC dc) const;
  void PaintLabels(HDC dc) const;
  void DrawItem(const DRAWITEMSTRUCT& item) const;
  void DrawInstance(const DRAWITEMSTRUCT& item) const;
  [[nodiscard]] int Margin() const { return theme_.Scale(16); }
  [[nodiscard]] int HeaderHeight() const { return theme_.TextHeight() * 5 + theme_.Scale(24); }
  [[nodiscard]] int LeftWidth() const;
  [[nodiscard]] SIZE SmallestClient() const;

  Session& session_;
  Script& script_;
  Theme theme_;
  LogView log_;
  HWND window_ = nullptr;
  HWND field_ = nullptr;
  HWND list_ = nullptr;
  std::vector<Button> buttons_;
  bool badField_ = false;  // the last retune text was none
  struct Label {
    RECT area;
    const char* text;
    bool bold;
  };
  std::vector<Label> labels_;
  RECT fieldFrame_{};
  RECT listFrame_{};
};
