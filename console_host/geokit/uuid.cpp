#include "host/geokit/uuid.h"

std::string GK_UuidToString(const GK_UUID& id)
{
    constexpr const char* Digits = "0123456789ABCDEF";
    std::string text;
    for (std::size_t i = 0; i < id.bytes.size(); ++i) {
        if (i == 4 || i == 6 || i == 8 || i == 10)
            text += '-';
        text += Digits[id.bytes[i] >> 4];
        text += Digits[id.bytes[i] & 0xF];
    }
    return text;
}
