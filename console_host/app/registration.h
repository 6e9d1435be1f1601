#pragma once

#include <new>
#include <vector>

/// Appends an object to a list while a module is loaded: no exception may leave the construction of
/// its globals. An object for which there is no memory is left out, and the failure is counted as
/// every one is.
template <class Object>
void AppendWhileLoading(std::vector<Object*>& list, Object* object) noexcept
try {
    list.push_back(object);
} catch (const std::bad_alloc&) {
    return;
}
