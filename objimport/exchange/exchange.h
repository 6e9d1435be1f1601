#pragma once

#include "host/app/objects.h"
#include "host/app/tables.h"
#include "host/geokit/point.h"

#include <cstdio>
#include <span>
#include <string>
#include <variant>
#include <vector>

// What the program and the library that writes documents in forms of other programs have in common.
// The program loads the library only when such a form is asked for; both are built together, by one
// compiler.

/// The geometry of an object by its kind; never null.
using ExchangeGeometry = std::variant<const GK_Mesh*, const GK_Curve*, const GK_3dPoint*,
                                      const GK_PointCloud*, const GK_Brep*>;

/// An object of a document.
struct ExchangeObject
{
    const GK_MdxObjectAttributes* attributes = nullptr;
    ExchangeGeometry geometry;
};

/// A file that was imported: its name in UTF-8, as it was typed, and the index of the first object
/// that came from it. It has all objects up to that of the next file.
struct ExchangeSource
{
    std::string file;
    std::size_t firstObject = 0;
};

/// A document that is written. What is viewed belongs to the document, which must not change.
struct ExchangeDocument
{
    std::span<const GK_Layer> layers;
    std::span<const GK_Group> groups;
    std::span<const GK_Material> materials;
    std::vector<ExchangeObject> objects; ///< in the order of the document
    std::vector<ExchangeSource> sources; ///< in the order of their objects; may be empty
    double tolerance = 0.001;            ///< the document's absolute tolerance
    bool isZUp = false;                  ///< the Z axis points up; otherwise Y does
};

enum class ExchangeForm
{
    Glb,
    Step,
    Picture
};

/// Where a picture is seen from.
enum class ExchangeView
{
    Iso, ///< from above, at a corner
    Top,
    Front,
    Right
};

/// What a picture is to be like.
struct ExchangePicture
{
    /// Of the width and the height, in pixels.
    static constexpr int LeastSide = 16;
    static constexpr int MostSide = 8192;

    ExchangeView view = ExchangeView::Iso;
    int width = 1200;
    int height = 900;
};

/// What is to be written, and to where.
struct ExchangeRequest
{
    ExchangeForm form = ExchangeForm::Glb;
    const ExchangeDocument* document = nullptr;
    ExchangePicture picture;

    /// Takes the bytes of the file, from its current place on. It remains the caller's, who
    /// discards what was written when the outcome has an error.
    std::FILE* stream = nullptr;
};

/// The outcome. Texts are in the user's language but for the error, in UTF-8, one line each,
/// without a full stop.
struct ExchangeOutcome
{
    std::string error;               ///< why nothing whole was written; empty: all is well
    std::string contents;            ///< what is in the file: "2 curves, 24 points"
    std::vector<std::string> losses; ///< what the form, or this build, cannot hold, with counts
};

/// The functions that the library exports under the names below. None throws.
///
/// WhyMissing returns why this build cannot write a form ("..., which this build is without"), as
/// a constant of the library's; null when it can. Write writes a document and sets the outcome.
using ExchangeWhyMissing = const char* (*)(ExchangeForm form);
using ExchangeWrite = void (*)(const ExchangeRequest& request, ExchangeOutcome& outcome);
constexpr const char* ExchangeWhyMissingName = "KelvoExchangeWhyMissing";
constexpr const char* ExchangeWriteName = "KelvoExchangeWrite";
