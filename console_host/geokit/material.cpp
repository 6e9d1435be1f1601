#include "host/geokit/material.h"

#include <algorithm>
#include <cmath>

const GK_Material::Contents& GK_Material::View() const
{
    static const Contents fresh;
    return m_contents != nullptr ? *m_contents : fresh;
}

/// Returns the contents to change, which no other material shares.
GK_Material::Contents& GK_Material::Change()
{
    if (m_contents == nullptr || m_contents.use_count() > 1)
        m_contents = std::make_shared<Contents>(View());
    return *m_contents;
}

void GK_Material::SetShine(double shine)
{
    if (!std::isnan(shine))
        Change().shine = std::clamp(shine, 0.0, MaxShine());
}

void GK_Material::SetTransparency(double transparency)
{
    if (!std::isnan(transparency))
        Change().transparency = std::clamp(transparency, 0.0, 1.0);
}

int GK_Material::AddTexture(const GK_Texture& texture)
{
    GK_ClassArray<GK_Texture>& textures = Change().textures;
    textures.Append(texture);
    return textures.Count() - 1;
}
