#include "host/geokit/material.h"

#include <algorithm>
#include <cmath>

void GK_Material::Default()
{
    *this = GK_Material();
}

void GK_Material::SetName(GK_wString name)
{
    m_name = std::move(name);
}

double GK_Material::MaxShine()
{
    return 255.0;
}

void GK_Material::SetShine(double shine)
{
    if (!std::isnan(shine))
        m_shine = std::clamp(shine, 0.0, MaxShine());
}

void GK_Material::SetTransparency(double transparency)
{
    if (!std::isnan(transparency))
        m_transparency = std::clamp(transparency, 0.0, 1.0);
}

int GK_Material::AddTexture(const GK_Texture& texture)
{
    m_textures.Append(texture);
    return m_textures.Count() - 1;
}
