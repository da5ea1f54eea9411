#include "foundation/Trace.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <string>
#include <vector>

namespace {

// Debugger output without a debugger: the system raises it as an exception first, which is looked at here.
class DebuggerOutput {
 public:
  DebuggerOutput() : handler_(AddVectoredExceptionHandler(1, Handle)) { lines_.clear(); }
  ~DebuggerOutput() { RemoveVectoredExceptionHandler(handler_); }
  DebuggerOutput(const DebuggerOutput&) = delete;
  DebuggerOutput& operator=(const DebuggerOutput&) = delete;
  [[nodiscard]] const std::vector<std::string>& Lines() const { return lines_; }

 private:
  static LONG CALLBACK Handle(EXCEPTION_POINTERS* pointers) {
    constexpr DWORD kPrint = 0x40010006;
    const EXCEPTION_RECORD& record = *pointers->ExceptionRecord;
    if (record.ExceptionCode != kPrint) return EXCEPTION_CONTINUE_SEARCH;
    lines_.emplace_back(reinterpret_cast<const char*>(record.ExceptionInformation[1]));
    return EXCEPTION_CONTINUE_EXECUTION;
  }

  static inline std::vector<std::string> lines_;
  void* handler_;  // removed by the destructor
};

TEST(Trace, WritesOnlyWhenItIsOn) {
  const DebuggerOutput output;
  {
    const Trace::Scope silent("Silent");
    Trace::Line("nothing");
    Trace::SwitchOn(true);
    const Trace::Scope scope("TmyFileDirect::Open");
    Trace::Line("File not opened, err=%d", 32);
    Trace::Line("%s", std::string(3000, 'x').c_str());
    Trace::SwitchOn(false);
    Trace::Line("nothing");
  }
  EXPECT_FALSE(Trace::IsOn());
  EXPECT_EQ(output.Lines(), (std::vector<std::string>{"TmyFileDirect::Open IN", "File not opened, err=32",
                                                      std::string(1000, 'x'), "TmyFileDirect::Open OUT"}));
}

}  // namespace
