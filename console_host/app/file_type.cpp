#include "host/app/file_type.h"

namespace {

/// The bit of a flag; 0 for a flag that there is not.
unsigned int BitOf(int flag)
{
    constexpr int FlagCount = 32;
    return flag >= 0 && flag < FlagCount ? 1U << flag : 0U;
}

} // namespace

int CKelvoFileReadOptions::Mode(int flag) const
{
    return (m_flags & BitOf(flag)) != 0 ? 1 : 0;
}

void CKelvoFileReadOptions::SetMode(int flag, bool on)
{
    m_flags = on ? m_flags | BitOf(flag) : m_flags & ~BitOf(flag);
}
