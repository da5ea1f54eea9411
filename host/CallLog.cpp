#include "host/CallLog.h"

#include "host/Protocol.h"

namespace {

std::string Written(const LogLine& line) {
  return Text("%8u  %-9s ", line.milliseconds, KindName(line.kind)) + line.text + "\n";
}

void Write(HANDLE file, const std::string& text) {
  DWORD written = 0;
  if (file && file != INVALID_HANDLE_VALUE)
    WriteFile(file, text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
}

}  // namespace

const char* KindName(LogKind kind) {
  constexpr const char* kNames[] = {"host", "call", "callback", "notify", "audio", "script", "error"};
  return kNames[static_cast<size_t>(kind)];
}

bool CallLog::OpenFile(const std::string& path) {
  const HANDLE file = CreateFileA(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                  nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) return false;
  CloseFile();
  file_ = file;
  Write(file_, WholeText());
  return true;
}

void CallLog::CloseFile() {
  if (file_ != INVALID_HANDLE_VALUE) CloseHandle(file_);
  file_ = INVALID_HANDLE_VALUE;
}

void CallLog::Add(LogKind kind, std::string text) {
  if (kind == LogKind::kError) ++errors_;
  lines_.push_back({GetTickCount() - begin_, kind, std::move(text)});
  const std::string written = Written(lines_.back());
  Write(file_, written);
  Write(GetStdHandle(STD_OUTPUT_HANDLE), written);
  if (onChange) onChange();
}

void CallLog::Clear() {
  cleared_ += static_cast<int64_t>(lines_.size());
  lines_.clear();
  if (onChange) onChange();
}

std::string CallLog::WholeText() const {
  std::string text;
  for (const LogLine& line : lines_) text += Written(line);
  return text;
}

int64_t CallLog::Find(const std::string& text, int64_t from) const {
  for (size_t i = from > cleared_ ? static_cast<size_t>(from - cleared_) : 0; i < lines_.size(); ++i) {
    if (lines_[i].text.find(text) != std::string::npos) return cleared_ + static_cast<int64_t>(i);
  }
  return -1;
}
