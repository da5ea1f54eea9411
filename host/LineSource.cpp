#include "host/LineSource.h"

#include <mutex>
#include <thread>

struct LineSource::Inflow {
  std::mutex lock;
  std::string text;
  bool ended = false;
};

bool LineSource::Open(const std::string& path) {
  const bool isStandardInput = path == "-";
  const HANDLE file = isStandardInput ? GetStdHandle(STD_INPUT_HANDLE)
                                      : CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                                    nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (!file || file == INVALID_HANDLE_VALUE) return false;
  inflow_ = std::make_shared<Inflow>();
  if (isStandardInput) {
    // A thread, because not every system can tell whether a pipe has something to read. It touches nothing but the
    // inflow and may outlive this object; the end of the program ends it.
    std::thread([file, inflow = inflow_] { Read(file, *inflow); }).detach();
    return true;
  }
  Read(file, *inflow_);
  CloseHandle(file);
  return true;
}

void LineSource::Read(HANDLE file, Inflow& inflow) {
  char chunk[4096];
  DWORD count = 0;
  while (ReadFile(file, chunk, sizeof chunk, &count, nullptr) && count > 0) {
    const std::lock_guard hold(inflow.lock);
    inflow.text.append(chunk, count);
  }
  const std::lock_guard hold(inflow.lock);
  inflow.ended = true;
}

bool LineSource::AtEnd() {
  const std::lock_guard hold(inflow_->lock);
  return inflow_->ended && inflow_->text.empty();
}

std::optional<std::string> LineSource::Next() {
  const std::lock_guard hold(inflow_->lock);
  std::string& text = inflow_->text;
  size_t end = text.find('\n');
  if (end == std::string::npos) {
    if (!inflow_->ended || text.empty()) return std::nullopt;
    end = text.size();  // the last line may lack its end
  }
  std::string line = text.substr(0, end);
  text.erase(0, end + 1);
  if (!line.empty() && line.back() == '\r') line.pop_back();
  return line;
}
