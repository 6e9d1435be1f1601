#include "tests/json_values.h"

#include <nlohmann/json.hpp>

namespace {

nlohmann::json Find(const std::string& json, const std::string& place)
{
    return nlohmann::json::parse(json).at(nlohmann::json::json_pointer(place));
}

} // namespace

std::string JsonAt(const std::string& json, const std::string& place)
{
    const nlohmann::json value = Find(json, place);
    return value.is_string() ? value.get<std::string>() : value.dump();
}

std::size_t JsonCount(const std::string& json, const std::string& place)
{
    return Find(json, place).size();
}
