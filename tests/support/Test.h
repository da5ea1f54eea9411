// Marlux 3. What tests include besides what they test: googletest, the standard library, and files of a test's own.
#pragma once

#include <gmock/gmock.h>
#include <windows.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "tests/support/TestEnvironment.h"

using testing::ElementsAre;
using testing::IsEmpty;
