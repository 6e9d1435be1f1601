#pragma once

/// The settings store of the host: entries in sections, kept from one run to the next. All
/// operations are for the user-interface thread, from the load hook to the unload hook. Names of
/// sections and entries are only read during a call; a section may hold '\'. The operations throw
/// std::bad_alloc when out of memory.
class CKelvoProfileContext
{
public:
    CKelvoProfileContext() = default;
    CKelvoProfileContext(const CKelvoProfileContext&) = delete;
    CKelvoProfileContext& operator=(const CKelvoProfileContext&) = delete;
    virtual ~CKelvoProfileContext() = default;

    /// Returns true when the entry exists and reads as a 32-bit integer, which `value` then is;
    /// otherwise false, and `value` is unchanged.
    virtual bool ReadInt(const wchar_t* section, const wchar_t* entry, int& value) = 0;

    /// Returns true when the entry exists and reads as a boolean, which `value` then is; otherwise
    /// false, and `value` is unchanged.
    virtual bool ReadBool(const wchar_t* section, const wchar_t* entry, bool& value) = 0;

    /// Set an entry. A store that cannot be written is reported by the host itself.
    virtual void WriteInt(const wchar_t* section, const wchar_t* entry, int value) = 0;
    virtual void WriteBool(const wchar_t* section, const wchar_t* entry, bool value) = 0;
};
