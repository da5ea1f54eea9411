#include "host/Script.h"

#include <windows.h>

#include <charconv>
#include <optional>

#include "host/PluginWindows.h"

namespace {

// line := { blank } { word blank { blank } } ; word := '"' { any but '"' } '"' | { any but blank }
std::vector<std::string> Split(const std::string& line) {
  std::vector<std::string> words;
  size_t at = 0;
  while ((at = line.find_first_not_of(" \t", at)) != std::string::npos) {
    if (line[at] == '#' && words.empty()) break;
    const bool quoted = line[at] == '"';
    if (quoted) ++at;
    const size_t end = std::min(line.find_first_of(quoted ? "\"" : " \t", at), line.size());
    words.push_back(line.substr(at, end - at));
    at = end + (quoted ? 1 : 0);
    if (at >= line.size()) break;
  }
  return words;
}

template <class Number>
std::optional<Number> Parse(const std::string& word) {
  const bool hexadecimal = word.starts_with("0x") || word.starts_with("0X");
  const char* const begin = word.data() + (hexadecimal ? 2 : 0);
  const char* const end = word.data() + word.size();
  Number number = 0;
  const auto [stop, error] = std::from_chars(begin, end, number, hexadecimal ? 16 : 10);
  if (error != std::errc() || stop != end || begin == end) return std::nullopt;
  return number;
}

std::optional<uint32_t> Word(const std::string& word) {
  return Parse<uint32_t>(word);
}

}  // namespace

const Script::Command Script::kCommands[] = {
    {"start", 0, 1, &Script::Start},       {"close", 1, 1, &Script::Close},
    {"notify", 2, 5, &Script::Notify},     {"retune", 1, 1, &Script::Retune},
    {"audio", 1, 4, &Script::Audio},       {"block", 1, 2, &Script::Block},
    {"wait", 1, 1, &Script::Wait},         {"waitfor", 1, 2, &Script::WaitFor},
    {"load", 1, 1, &Script::Load},         {"unload", 0, 0, &Script::Unload},
    {"log", 1, 1, &Script::Log},           {"echo", 0, 99, &Script::Echo},
    {"quit", 0, 0, &Script::Quit},         {"choose", 1, 1, &Script::Choose},
    {"post", 2, 4, &Script::Post},         {"waitwindow", 1, 2, &Script::WaitWindow},
    {"audiolog", 1, 1, &Script::AudioLog},
};

void Script::Step() {
  while (open_ && !session_.IsQuitting() && !IsWaiting()) {
    const auto line = source_.Next();
    if (line) {
      ++lineNumber_;
      Run(*line);
    } else if (source_.AtEnd()) {
      session_.RequestQuit(0);
    } else {
      return;
    }
  }
}

bool Script::IsWaiting() {
  if (session_.IsUnloading()) return true;
  if (!waiting_) return false;
  if (waitsForWindow_) {
    waiting_ = !PluginWindows::Find(waitText_);
  } else if (!waitText_.empty()) {
    const int64_t found = session_.Log().Find(waitText_, searchFrom_);
    if (found >= 0) searchFrom_ = found + 1;
    waiting_ = found < 0;
  }
  if (waiting_ && GetTickCount() - waitBegin_ >= waitMs_) {
    waiting_ = false;
    if (!waitText_.empty()) {
      Fail(waitLine_,
           (waitsForWindow_ ? "no window \"" : "no line with \"") + waitText_ + Text("\" came in %u ms", waitMs_));
    }
  }
  return waiting_;
}

void Script::Run(const std::string& line) {
  Words words = Split(line);
  if (words.empty()) return;
  const int number = lineNumber_;  // a command may run others before it returns
  const std::string name = words.front();
  words.erase(words.begin());
  for (const Command& command : kCommands) {
    if (name != command.name) continue;
    if (words.size() < command.fewest || words.size() > command.most)
      return Fail(number, "wrong number of arguments: " + line);
    if (!(this->*command.run)(words)) Fail(number, "failed: " + line);
    return;
  }
  Fail(number, "unknown command: " + line);
}

void Script::Fail(int lineNumber, const std::string& reason) {
  const std::string text = Text("script line %d: ", lineNumber) + reason;
  session_.Log().Add(LogKind::kError, text);
  const std::string written = "marlux-host: " + text + "\n";
  DWORD count = 0;
  WriteFile(GetStdHandle(STD_ERROR_HANDLE), written.data(), static_cast<DWORD>(written.size()), &count, nullptr);
  session_.RequestQuit(1);
}

bool Script::Complain(const std::string& reason) {
  session_.Log().Add(LogKind::kError, reason);
  return false;
}

bool Script::Start(const Words& arguments) {
  if (arguments.empty()) return session_.Start();
  const auto handle = Word(arguments[0]);
  return handle ? session_.Start(handle) : Complain("a handle is a number");
}

bool Script::Close(const Words& arguments) {
  const auto handle = Word(arguments[0]);
  return handle ? session_.Close(*handle) : Complain("a handle is a number");
}

bool Script::Notify(const Words& arguments) {
  std::vector<uint32_t> numbers;
  for (const std::string& argument : arguments) {
    const auto number = Word(argument);
    if (!number) return Complain("\"" + argument + "\" is no number of 32 bits");
    numbers.push_back(*number);
  }
  const size_t count = numbers.size();
  numbers.resize(5);
  return session_.Notify(numbers[0], numbers[1], numbers[2], numbers[3],
                         count == 5 ? std::optional(numbers[4]) : std::nullopt);
}

bool Script::Retune(const Words& arguments) {
  constexpr int64_t kHighest = 21474836470;  // what a query can answer
  const auto hz = Parse<int64_t>(arguments[0]);
  if (!hz || *hz < 0 || *hz > kHighest) return Complain("a frequency is a number of Hz up to 21474836470");
  session_.Retune(*hz);
  return true;
}

bool Script::Audio(const Words& arguments) {
  AudioFormat format = session_.Audio();
  if (arguments[0] == "off") {
    format.kind = AudioKind::kOff;
  } else if (arguments[0] == "tone" || arguments[0] == "noise") {
    format.kind = arguments[0] == "tone" ? AudioKind::kTone : AudioKind::kNoise;
  } else {
    return Complain("audio is off, tone or noise");
  }
  if (arguments.size() > 1) format.sampleRate = Word(arguments[1]).value_or(0);
  if (arguments.size() > 2) format.channels = Word(arguments[2]).value_or(0);
  if (arguments.size() > 3) {
    if (arguments[3] != "16" && arguments[3] != "float") return Complain("samples are 16 or float");
    format.isFloat = arguments[3] == "float";
  }
  return session_.SetAudio(format);
}

bool Script::Block(const Words& arguments) {
  constexpr uint32_t kLargest = 1u << 20;
  const uint32_t size = arguments.size() == 2 ? Word(arguments[1]).value_or(kLargest + 1) : kLargest + 1;
  if (arguments[0] == "normal" && arguments.size() == 1) {
    session_.SetBlock(HostBlock::Shape::kGood, 0);
  } else if (arguments[0] == "null" && arguments.size() == 1) {
    session_.SetBlock(HostBlock::Shape::kNull, 0);
  } else if (arguments[0] == "size" && size <= kLargest) {
    session_.SetBlock(HostBlock::Shape::kSize, size);
  } else {
    return Complain("a block is normal, null, or size and a number up to 1048576");
  }
  return true;
}

bool Script::Wait(const Words& arguments) {
  const auto milliseconds = Word(arguments[0]);
  if (!milliseconds) return Complain("a time is a number of milliseconds");
  waitText_.clear();
  waitsForWindow_ = false;
  waitLine_ = lineNumber_;
  waitBegin_ = GetTickCount();
  waitMs_ = *milliseconds;
  return waiting_ = true;
}

bool Script::WaitFor(const Words& arguments) {
  return WaitForText(arguments, false);
}

bool Script::WaitWindow(const Words& arguments) {
  return WaitForText(arguments, true);
}

bool Script::WaitForText(const Words& arguments, bool isCaption) {
  constexpr uint32_t kDefaultMs = 10000;
  const auto milliseconds = arguments.size() == 2 ? Word(arguments[1]) : kDefaultMs;
  if (!milliseconds || arguments[0].empty()) return Complain("this needs a text and a number of milliseconds");
  waitsForWindow_ = isCaption;
  waitText_ = arguments[0];
  waitLine_ = lineNumber_;
  waitBegin_ = GetTickCount();
  waitMs_ = *milliseconds;
  return waiting_ = true;
}

bool Script::Choose(const Words& arguments) {
  return PluginWindows::Choose(arguments[0]) || Complain("no window has this menu item");
}

bool Script::Post(const Words& arguments) {
  std::vector<uint32_t> numbers;
  for (size_t i = 1; i < arguments.size(); ++i) {
    const auto number = Word(arguments[i]);
    if (!number) return Complain("this needs a window and numbers");
    numbers.push_back(*number);
  }
  numbers.resize(3);
  const HWND window = PluginWindows::Find(arguments[0]);
  if (!window) return Complain("there is no such window");
  return PostMessageA(window, numbers[0], numbers[1], static_cast<LPARAM>(numbers[2]));
}

bool Script::AudioLog(const Words& arguments) {
  const uint32_t blocks = Word(arguments[0]).value_or(0);
  if (blocks == 0) return Complain("a number of blocks is wanted");
  session_.LogAudioEvery(blocks);
  return true;
}

bool Script::Load(const Words& arguments) {
  return session_.Load(arguments[0]);
}

bool Script::Unload(const Words&) {
  if (!session_.IsLoaded()) return Complain("no plug-in is loaded");
  session_.RequestUnload();
  return true;
}

bool Script::Log(const Words& arguments) {
  return session_.Log().OpenFile(arguments[0]) || Complain(arguments[0] + " cannot be written");
}

bool Script::Echo(const Words& arguments) {
  std::string text;
  for (const std::string& word : arguments) text += (text.empty() ? "" : " ") + word;
  session_.Log().Add(LogKind::kScript, text);
  return true;
}

bool Script::Quit(const Words&) {
  session_.RequestQuit(0);
  return true;
}
