#include "host/app/dib.h"

#include "console_host/app/image_builder.h"

#include <new>
#include <utility>

CKelvoUiDib::CKelvoUiDib(CKelvoUiDib&& other) noexcept
{
    *this = std::move(other);
}

CKelvoUiDib& CKelvoUiDib::operator=(CKelvoUiDib&& other) noexcept
{
    m_layout = std::exchange(other.m_layout, {});
    m_bits = std::move(other.m_bits);
    return *this;
}

CKelvoUiDib::~CKelvoUiDib() = default;

bool CKelvoUiDib::CreateDib(int width, int height, int depth, bool withPixels,
                            const CKelvoPalette* palette)
{
    DestroyDib();
    if (width < 1 || height < 1 || width > MaxSide || height > MaxSide)
        return false;
    if ((depth != 24 && depth != 32) || palette != nullptr)
        return false;
    const std::size_t size = DibRowSize(width, depth) * static_cast<std::size_t>(height);
    if (size > MaxStorageSize)
        return false;
    if (withPixels) {
        m_bits.reset(new (std::nothrow) unsigned char[size]);
        if (m_bits == nullptr)
            return false;
    }
    m_layout = {width, height, depth, withPixels ? size : 0};
    return true;
}

void CKelvoUiDib::DestroyDib()
{
    m_layout = {};
    m_bits.reset();
}

CKelvoDib::CKelvoDib(int width, int height, int depth, bool withPixels,
                     const CKelvoPalette* palette)
{
    CreateDib(width, height, depth, withPixels, palette);
}
