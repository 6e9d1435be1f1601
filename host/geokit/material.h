#pragma once

#include "host/geokit/class_array.h"
#include "host/geokit/color.h"
#include "host/geokit/string.h"
#include "host/geokit/texture.h"

#include <memory>

/// How a surface looks: colours, shine, transparency and textures. Copies share all this but the
/// transparent colour until one of them changes, since a table may hold one material many times. A
/// copy behaves as a deep one, and each copy may be used by a thread of its own. Setters throw
/// std::bad_alloc when out of memory and leave the material as it was.
class GK_Material
{
public:
    /// Makes this a new material: no name, ambient black, diffuse 128, 128, 128, specular and
    /// transparent white, no shine, no transparency, no textures.
    void Default() { *this = GK_Material(); }

    void SetName(GK_wString name) { Change().name = std::move(name); }
    [[nodiscard]] const GK_wString& Name() const { return View().name; }

    void SetAmbient(const GK_Color& color) { Change().ambient = color; }
    void SetDiffuse(const GK_Color& color) { Change().diffuse = color; }
    void SetSpecular(const GK_Color& color) { Change().specular = color; }
    [[nodiscard]] const GK_Color& Ambient() const { return View().ambient; }
    [[nodiscard]] const GK_Color& Diffuse() const { return View().diffuse; }
    [[nodiscard]] const GK_Color& Specular() const { return View().specular; }

    /// The colour of light that passes through.
    GK_Color transparent{255, 255, 255};

    /// Returns the largest shine; above 0 and always the same.
    [[nodiscard]] static double MaxShine() { return 255.0; }

    /// Sets the shine, kept within 0 to MaxShine(); what is not a number changes nothing.
    void SetShine(double shine);
    [[nodiscard]] double Shine() const { return View().shine; }

    /// Sets the transparency, 0 opaque to 1 clear, kept within; what is not a number changes
    /// nothing.
    void SetTransparency(double transparency);
    [[nodiscard]] double Transparency() const { return View().transparency; }

    /// Appends a copy of the texture and returns its index.
    int AddTexture(const GK_Texture& texture);
    [[nodiscard]] const GK_ClassArray<GK_Texture>& Textures() const { return View().textures; }

private:
    struct Contents
    {
        GK_wString name;
        GK_Color ambient;
        GK_Color diffuse{128, 128, 128};
        GK_Color specular{255, 255, 255};
        double shine = 0.0;
        double transparency = 0.0;
        GK_ClassArray<GK_Texture> textures;
    };

    [[nodiscard]] const Contents& View() const;
    Contents& Change();

    std::shared_ptr<Contents> m_contents; ///< null: those of a new material
};
