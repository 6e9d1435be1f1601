#pragma once

#include "host/geokit/class_array.h"
#include "host/geokit/color.h"
#include "host/geokit/string.h"
#include "host/geokit/texture.h"

/// How a surface looks: colours, shine, transparency and textures.
class GK_Material
{
public:
    /// Back to a fresh material: no name, ambient black, diffuse 128, 128, 128, specular and
    /// transparent white, no shine, no transparency, no textures.
    void Default();

    void SetName(GK_wString name);
    [[nodiscard]] const GK_wString& Name() const { return m_name; }

    void SetAmbient(const GK_Color& color) { m_ambient = color; }
    void SetDiffuse(const GK_Color& color) { m_diffuse = color; }
    void SetSpecular(const GK_Color& color) { m_specular = color; }
    [[nodiscard]] const GK_Color& Ambient() const { return m_ambient; }
    [[nodiscard]] const GK_Color& Diffuse() const { return m_diffuse; }
    [[nodiscard]] const GK_Color& Specular() const { return m_specular; }

    /// The colour of light that passes through.
    GK_Color transparent{255, 255, 255};

    /// The largest shine.
    [[nodiscard]] static double MaxShine();

    /// Kept within 0 to MaxShine(); what is not a number changes nothing.
    void SetShine(double shine);
    [[nodiscard]] double Shine() const { return m_shine; }

    /// 0 opaque to 1 clear, kept within; what is not a number changes nothing.
    void SetTransparency(double transparency);
    [[nodiscard]] double Transparency() const { return m_transparency; }

    /// Appends a copy of the texture; gives its index.
    int AddTexture(const GK_Texture& texture);
    [[nodiscard]] const GK_ClassArray<GK_Texture>& Textures() const { return m_textures; }

private:
    GK_wString m_name;
    GK_Color m_ambient;
    GK_Color m_diffuse{128, 128, 128};
    GK_Color m_specular{255, 255, 255};
    double m_shine = 0.0;
    double m_transparency = 0.0;
    GK_ClassArray<GK_Texture> m_textures;
};
