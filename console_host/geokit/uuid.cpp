#include "host/geokit/uuid.h"

#include "console_host/runtime/text.h"

std::string GK_UuidToString(const GK_UUID& id)
{
    std::string text;
    for (std::size_t i = 0; i < id.bytes.size(); ++i) {
        if (i == 4 || i == 6 || i == 8 || i == 10)
            text += '-';
        text += FormatText("%02X", id.bytes[i]);
    }
    return text;
}
