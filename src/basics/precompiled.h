// What nearly every file of the logic reads first, compiled once for all rooms without windows.
// Sources still name what they use: the release build does without this.
#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>
