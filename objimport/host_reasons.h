#pragma once

#include <string>
#include <string_view>

/// Returns a reason of the host (why something was refused, what is inconsistent) in the user's
/// language; as it is when no text for it is known.
std::string LocalReason(std::string_view reason);
