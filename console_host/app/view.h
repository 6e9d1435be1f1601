#pragma once

#include "host/app/doc.h"

/// A view of a document; the console shows none, so it only knows what it would show.
class CKelvoView
{
public:
    GK_BoundingBox shown;
};
