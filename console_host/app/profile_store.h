#pragma once

#include "host/app/profile.h"

#include <filesystem>
#include <map>
#include <optional>
#include <string>

/// Settings as text in sections, in memory or kept in a file from one run to the next.
///
/// The file is UTF-8: a line "[section]", then lines "entry=value"; lines that begin with ';' or
/// '#' are remarks, which are lost when the settings are saved. In names a character with a meaning
/// of its own is written as '%' and two hexadecimal digits.
class ProfileStore final : public CKelvoProfileContext
{
public:
    /// Makes settings in memory only.
    ProfileStore() = default;

    /// Loads the settings of a file. A file that does not exist yet holds none; neither does one
    /// that cannot be read or that is not a settings file, which is never replaced.
    explicit ProfileStore(std::filesystem::path path);

    bool ReadInt(const wchar_t* section, const wchar_t* entry, int& value) override;
    bool ReadBool(const wchar_t* section, const wchar_t* entry, bool& value) override;
    void WriteInt(const wchar_t* section, const wchar_t* entry, int value) override;
    void WriteBool(const wchar_t* section, const wchar_t* entry, bool value) override;

    /// Writes the file when anything was changed since it was loaded. Returns false, after a report
    /// on standard error, when it cannot; the file is then as it was.
    bool Save();

    /// Returns why the file, which exists, could not be used as settings; empty when it could.
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
