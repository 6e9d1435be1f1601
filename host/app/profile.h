#pragma once

/// The settings store of the host: entries in sections, kept from one run to the next.
class CKelvoProfileContext
{
public:
    CKelvoProfileContext() = default;
    CKelvoProfileContext(const CKelvoProfileContext&) = delete;
    CKelvoProfileContext& operator=(const CKelvoProfileContext&) = delete;
    virtual ~CKelvoProfileContext() = default;

    /// True when the entry exists and reads as a 32-bit integer, which `value` then is; otherwise
    /// `value` is unchanged.
    virtual bool ReadInt(const wchar_t* section, const wchar_t* entry, int& value) = 0;

    /// True when the entry exists and reads as a boolean, which `value` then is; otherwise `value`
    /// is unchanged.
    virtual bool ReadBool(const wchar_t* section, const wchar_t* entry, bool& value) = 0;

    /// Sets an entry. A write that fails is reported by the host itself.
    virtual void WriteInt(const wchar_t* section, const wchar_t* entry, int value) = 0;
    virtual void WriteBool(const wchar_t* section, const wchar_t* entry, bool value) = 0;
};
