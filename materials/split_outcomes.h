#pragma once

#include "host/geokit/texture.h"

#include <filesystem>
#include <functional>
#include <map>
#include <string>
#include <utility>

/// What splitting has given for the textures of one import, so that an image is split once, however
/// many materials show it and however they spell its name.
class SplitOutcomes
{
public:
    /// As SplitTexture. A texture seen before gets its earlier outcome.
    bool Split(GK_Texture& diffuse, GK_Texture& alpha);

    /// To be called when all textures are split: images whose names differ only in their endings
    /// are split into the same files, which belong to the one that was named last.
    void Finish();

private:
    /// An image and the files it is split into, the same for all spellings of their names.
    using Key = std::pair<std::filesystem::path, std::filesystem::path>;

    struct Outcome
    {
        GK_wString source; ///< as it was named first
        GK_Texture diffuse;
        GK_Texture alpha;
        bool result = false;

        [[nodiscard]] bool WroteColor() const { return !(diffuse.filename == source); }
        [[nodiscard]] bool WroteAlpha() const { return !alpha.filename.IsEmpty(); }
    };

    struct Files
    {
        const Outcome* written = nullptr; ///< whose image they hold
        const Outcome* named = nullptr;   ///< whose image they are to hold
    };

    const Outcome& OutcomeOf(const GK_Texture& texture);
    const Outcome& SplitOnce(const GK_Texture& texture);

    std::map<std::wstring, const Outcome*, std::less<>> m_named; ///< by name as it was spelled
    std::map<Key, Outcome> m_outcomes;
    std::map<const Outcome*, Files*> m_filesOf; ///< of those that have written any
    std::map<std::filesystem::path, Files> m_files;
};
