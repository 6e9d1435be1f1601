#pragma once

#include <nlohmann/json.hpp>
#include <string>

/// A document, given in its JSON form, as short text that a person can read and compare. What is as
/// in a fresh document is left out.
[[nodiscard]] std::string Report(const nlohmann::json& document);
