#pragma once

#include "objimport/exchange/exchange.h"

/// Returns the point from which the positions of a document are best counted in single precision:
/// the origin, or a point amid its objects where they stand so far from the origin, and so close to
/// each other, that rounding would show.
GK_3dPoint OriginForSinglePrecision(const ExchangeDocument& document);
