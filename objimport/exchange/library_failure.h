#pragma once

#include <functional>
#include <optional>
#include <string>

/// Runs what uses the geometry library. Returns nothing when all went well, else why not, as a
/// clause: what the library throws has no common base class. std::bad_alloc is not caught.
std::optional<std::string> FailureOf(const std::function<void()>& work);
