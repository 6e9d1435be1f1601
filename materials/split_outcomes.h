#pragma once

#include "host/geokit/texture.h"

#include <functional>
#include <map>
#include <string>

/// What splitting has given for the textures of one import, so that an image which many materials
/// show is split once.
class SplitOutcomes
{
public:
    /// As SplitTexture. A texture seen before gets its earlier outcome, unless the files that
    /// belong to it have been written for another one since.
    bool Split(GK_Texture& diffuse, GK_Texture& alpha);

private:
    struct Outcome
    {
        bool result = false;
        GK_Texture diffuse;
        GK_Texture alpha;
    };

    std::map<std::wstring, Outcome, std::less<>> m_outcomes; ///< by source file

    /// The source whose files were last written, by the names of these files without their endings.
    std::map<std::wstring, std::wstring, std::less<>> m_sources;
};
