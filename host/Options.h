// Marlux host. The command line.
#pragma once

#include <string>

struct Options {
  // What is understood, for the user.
  static const char kUsage[];

  std::string plugin;  // default: marlux3.dll beside the program
  std::string script;  // empty: run by hand
  std::string log;     // empty: none
  bool pluginGiven = false;
  bool minimized = false;

  // False with the reason.
  [[nodiscard]] bool Parse(int count, char** arguments, std::string& reason);
};
