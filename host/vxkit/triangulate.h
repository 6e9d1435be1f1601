#pragma once

/// Cuts a polygon into triangles in its best-fit plane, concave or not, keeping its winding.
///
/// `points` holds `pointCount` (3 or more) points of `pointDimension` (3) coordinates,
/// `pointStride` (3) doubles from one to the next. `triangles` takes (pointCount - 2) * 3 integers:
/// for each triangle the positions, 0 to pointCount - 1, of its corners in the polygon. Work stays
/// near n log n. Both arrays stay the caller's. Returns true when the polygon was cut; returns
/// false when it could not be, and the contents of `triangles` then mean nothing. Any thread.
/// Throws std::bad_alloc when out of memory.
bool VX_Triangulate3dPolygon(int pointCount, int pointDimension, const double* points,
                             int pointStride, int* triangles);
