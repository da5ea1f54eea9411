#include "host/HostWindow.h"

#include <cstring>

#include "host/HostControls.h"

namespace {

constexpr char kClass[] = "MarluxHost";
constexpr UINT_PTR kTick = 1;
constexpr UINT kTickMs = 10;  // scripts and audio

struct ButtonPlan {
  int id;
  const char* text;
  bool startsGroup;
};

constexpr ButtonPlan kTopButtons[] = {{Control::kRetune, "Retune", false}};
constexpr ButtonPlan kLowerButtons[] = {
    {Control::kStart, "Start", true},         {Control::kClose, "Close", false},
    {Control::kCloseAll, "Close all", false}, {Control::kSourceOff, "Off", true},
    {Control::kSourceTone, "Tone", false},    {Control::kSourceNoise, "Noise", false},
    {Control::kRate, "8000", true},           {Control::kRate + 1, "12000", false},
    {Control::kRate + 2, "44100", false},     {Control::kRate + 3, "48000", false},
    {Control::kMono, "Mono", true},           {Control::kStereo, "Stereo", false},
    {Control::kInteger, "16-bit", true},      {Control::kFloat, "Float", false},
    {Control::kCopy, "Copy", true},           {Control::kClear, "Clear", false},
};

HMENU MenuId(int id) {
  return reinterpret_cast<HMENU>(static_cast<INT_PTR>(id));
}

}  // namespace

HostWindow::~HostWindow() {
  session_.onChange = nullptr;
  session_.Log().onChange = nullptr;
  if (window_) DestroyWindow(window_);
}

bool HostWindow::Create(bool minimized) {
  const HINSTANCE module = GetModuleHandleA(nullptr);
  WNDCLASSA kind{};
  kind.lpfnWndProc = Procedure;
  kind.hInstance = module;
  kind.lpszClassName = kClass;
  kind.hIcon = LoadIconA(module, MAKEINTRESOURCEA(1));
  kind.hCursor = LoadCursorA(nullptr, reinterpret_cast<LPCSTR>(IDC_ARROW));
  RegisterClassA(&kind);
  if (!CreateWindowExA(WS_EX_CONTROLPARENT, kClass, "Marlux Host", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, CW_USEDEFAULT,
                       CW_USEDEFAULT, theme_.Scale(980), theme_.Scale(600), nullptr, nullptr, module, this)) {
    return false;
  }
  session_.onChange = [this] { RefreshFromSession(); };
  session_.Log().onChange = [this] { log_.Refresh(); };
  RefreshFromSession();
  log_.Refresh();
  SetTimer(window_, kTick, kTickMs, nullptr);
  ShowWindow(window_, minimized ? SW_SHOWMINNOACTIVE : SW_SHOWNORMAL);
  return true;
}

LRESULT CALLBACK HostWindow::Procedure(HWND window, UINT message, WPARAM word, LPARAM data) {
  if (message == WM_NCCREATE) {
    auto* const host = static_cast<HostWindow*>(reinterpret_cast<CREATESTRUCTA*>(data)->lpCreateParams);
    host->window_ = window;
    SetWindowLongA(window, GWL_USERDATA, reinterpret_cast<LONG>(host));
  }
  auto* const host = reinterpret_cast<HostWindow*>(GetWindowLongA(window, GWL_USERDATA));
  return host ? host->Handle(message, word, data) : DefWindowProcA(window, message, word, data);
}

LRESULT HostWindow::Handle(UINT message, WPARAM word, LPARAM data) {
  switch (message) {
    case WM_CREATE:
      CreateControls();
      return 0;
    case WM_SIZE:
      Layout();
      return 0;
    case WM_PAINT:
      Paint();
      return 0;
    case WM_ERASEBKGND:
      return 1;
    case WM_DRAWITEM:
      DrawItem(*reinterpret_cast<DRAWITEMSTRUCT*>(data));
      return TRUE;
    case WM_MEASUREITEM:
      reinterpret_cast<MEASUREITEMSTRUCT*>(data)->itemHeight = static_cast<UINT>(theme_.RowHeight() + theme_.Scale(4));
      return TRUE;
    case WM_COMMAND:
      Command(LOWORD(word), HIWORD(word));
      return 0;
    case WM_GETMINMAXINFO: {
      const SIZE least = SmallestClient();
      RECT whole = {0, 0, least.cx, least.cy};
      AdjustWindowRectEx(&whole, WS_OVERLAPPEDWINDOW, FALSE, 0);
      reinterpret_cast<MINMAXINFO*>(data)->ptMinTrackSize = {whole.right - whole.left, whole.bottom - whole.top};
      return 0;
    }
    case WM_TIMER:
      Tick();
      return 0;
    case WM_CLOSE:
      session_.RequestQuit(0);
      return 0;
    case WM_DESTROY:
      window_ = nullptr;
      return 0;
  }
  return DefWindowProcA(window_, message, word, data);
}

void HostWindow::Tick() {
  constexpr UINT kStuck = 3;
  session_.DeliverAudio();
  script_.Step();
  if (!session_.IsStuck()) return;
  session_.Log().Add(LogKind::kError, "the plug-in stays in a message loop of its own: the host ends without it");
  ExitProcess(kStuck);
}

void HostWindow::CreateControls() {
  const HINSTANCE module = GetModuleHandleA(nullptr);
  const auto add = [&](const char* kind, const char* text, DWORD style, int id) {
    const HWND control =
        CreateWindowExA(0, kind, text, WS_CHILD | WS_VISIBLE | style, 0, 0, 0, 0, window_, MenuId(id), module, nullptr);
    SendMessageA(control, WM_SETFONT, reinterpret_cast<WPARAM>(theme_.Font()), FALSE);
    return control;
  };
  const auto addButton = [&](const ButtonPlan& plan) {
    const DWORD group = plan.startsGroup ? WS_GROUP : 0;
    buttons_.push_back({plan.id, plan.text, add("BUTTON", plan.text, BS_OWNERDRAW | WS_TABSTOP | group, plan.id)});
  };
  field_ = add("EDIT", "", WS_TABSTOP | ES_AUTOHSCROLL | ES_RIGHT, Control::kRetuneField);
  for (const ButtonPlan& plan : kTopButtons) addButton(plan);
  list_ = add("LISTBOX", "", WS_TABSTOP | WS_VSCROLL | LBS_OWNERDRAWFIXED | LBS_NOTIFY | LBS_NOINTEGRALHEIGHT,
              Control::kInstances);
  for (const ButtonPlan& plan : kLowerButtons) addButton(plan);
  (void)log_.Create(window_, Control::kLog);
}

void HostWindow::Command(int id, int event) {
  switch (id) {
    case IDOK:
      if (GetFocus() == field_) RetuneFromField();
      return;
    case Control::kRetuneField:
      if (event == EN_SETFOCUS || event == EN_KILLFOCUS || event == EN_CHANGE) {
        badField_ = badField_ && event != EN_CHANGE;
        InvalidateRect(window_, &fieldFrame_, FALSE);
      }
      return;
    case Control::kInstances:
      if (event == LBN_SETFOCUS || event == LBN_KILLFOCUS) InvalidateRect(window_, &listFrame_, FALSE);
      return;
    case Control::kRetune:
      return RetuneFromField();
    case Control::kStart:
      session_.Start();
      return;
    case Control::kClose:
      if (ChosenHandle()) session_.Close(ChosenHandle());
      return;
    case Control::kCloseAll:
      session_.CloseAll();
      return;
    case Control::kCopy:
      return CopyLog();
    case Control::kClear:
      return session_.Log().Clear();
  }
  if (id >= Control::kSourceOff && id <= Control::kFloat) AudioCommand(id);
}

void HostWindow::AudioCommand(int id) {
  AudioFormat format = session_.Audio();
  if (id <= Control::kSourceNoise) format.kind = static_cast<AudioKind>(id - Control::kSourceOff);
  if (id >= Control::kRate && id <= Control::kLastRate) format.sampleRate = Control::kRates[id - Control::kRate];
  if (id == Control::kMono || id == Control::kStereo) format.channels = id == Control::kStereo ? 2 : 1;
  if (id == Control::kInteger || id == Control::kFloat) format.isFloat = id == Control::kFloat;
  session_.SetAudio(format);
}

bool HostWindow::IsChosen(int id) const {
  const AudioFormat& format = session_.Audio();
  if (id >= Control::kSourceOff && id <= Control::kSourceNoise) {
    return id - Control::kSourceOff == static_cast<int>(format.kind);
  }
  if (id >= Control::kRate && id <= Control::kLastRate)
    return format.sampleRate == Control::kRates[id - Control::kRate];
  if (id == Control::kMono) return format.channels == 1;
  if (id == Control::kStereo) return format.channels == 2;
  if (id == Control::kInteger) return !format.isFloat;
  return id == Control::kFloat && format.isFloat;
}

void HostWindow::RetuneFromField() {
  char text[64];
  GetWindowTextA(field_, text, sizeof text);
  int64_t hz = 0;
  badField_ = !ParseKilohertz(text, hz);
  InvalidateRect(window_, nullptr, FALSE);
  if (!badField_) session_.Retune(hz);
}

void HostWindow::CopyLog() const {
  const std::string text = session_.Log().WholeText();
  if (!OpenClipboard(window_)) return;
  EmptyClipboard();
  const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, text.size() + 1);
  void* chars = memory ? GlobalLock(memory) : nullptr;
  if (chars) {
    std::memcpy(chars, text.c_str(), text.size() + 1);
    GlobalUnlock(memory);
  }
  if (!chars || !SetClipboardData(CF_TEXT, memory)) GlobalFree(memory);  // else it is the clipboard's
  CloseClipboard();
}

uint32_t HostWindow::ChosenHandle() const {
  const auto at = static_cast<size_t>(SendMessageA(list_, LB_GETCURSEL, 0, 0));
  return at < session_.Instances().size() ? session_.Instances()[at].handle : 0;
}

void HostWindow::RefreshFromSession() {
  const auto before = static_cast<int>(SendMessageA(list_, LB_GETCURSEL, 0, 0));
  const auto count = static_cast<int>(session_.Instances().size());
  if (SendMessageA(list_, LB_GETCOUNT, 0, 0) != count) {
    SendMessageA(list_, LB_RESETCONTENT, 0, 0);
    for (const Instance& instance : session_.Instances()) {
      const std::string name = Text("Instance %u", instance.handle);
      SendMessageA(list_, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(name.c_str()));
    }
    SendMessageA(list_, LB_SETCURSEL, static_cast<WPARAM>(before >= 0 && before < count ? before : count - 1), 0);
  }
  for (const Button& button : buttons_) {
    const bool closes = button.id == Control::kClose || button.id == Control::kCloseAll;
    const bool enabled = closes ? count > 0 : button.id != Control::kStart || session_.IsLoaded();
    if (enabled != (IsWindowEnabled(button.window) != FALSE)) EnableWindow(button.window, enabled);
    InvalidateRect(button.window, nullptr, FALSE);
  }
  InvalidateRect(list_, nullptr, FALSE);
  InvalidateRect(window_, nullptr, FALSE);
}
