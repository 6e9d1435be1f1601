#pragma once

#include "host/app/profile.h"

#include <filesystem>
#include <map>
#include <optional>
#include <string>

/// Settings as text in sections, in memory or kept in a file from one run to the next.
///
/// The file is UTF-8: a line "[section]", then lines "entry=value"; lines that begin with ';' or
/// '#' are remarks, which the next saving drops. In names a character that would be read as
/// something else stands as '%' and two hexadecimal digits.
class ProfileStore final : public CKelvoProfileContext
{
public:
    /// Settings in memory only.
    ProfileStore() = default;

    /// Settings of a file, loaded at once. A file that does not exist yet holds none; so does one
    /// that cannot be read or that is no settings file, which is never replaced.
    explicit ProfileStore(std::filesystem::path path);

    bool ReadInt(const wchar_t* section, const wchar_t* entry, int& value) override;
    bool ReadBool(const wchar_t* section, const wchar_t* entry, bool& value) override;
    void WriteInt(const wchar_t* section, const wchar_t* entry, int value) override;
    void WriteBool(const wchar_t* section, const wchar_t* entry, bool value) override;

    /// Writes the file when anything was changed since it was loaded. A failure is reported on
    /// standard error and gives false; the file is then as it was.
    bool Save();

    /// Why the file, which is there, could not be taken for settings; empty when it could.
    [[nodiscard]] const std::string& WhyUnreadable() const { return m_whyUnreadable; }

private:
    using Section = std::map<std::string, std::string>;

    void Load();
    [[nodiscard]] std::optional<std::string> Find(const wchar_t* section,
                                                  const wchar_t* entry) const;
    void Write(const wchar_t* section, const wchar_t* entry, std::string value);
    [[nodiscard]] std::string Text() const;

    std::filesystem::path m_path;
    std::map<std::string, Section> m_sections;
    bool m_changed = false;
    std::string m_whyUnreadable;
};
