#include "host/vxkit/triangulate.h"

bool VX_Triangulate3dPolygon(int pointCount, int /*pointDimension*/, const double* /*points*/,
                             int /*pointStride*/, int* triangles)
{
    for (int i = 1; i + 1 < pointCount; ++i) {
        *triangles++ = 0;
        *triangles++ = i;
        *triangles++ = i + 1;
    }
    return pointCount >= 3;
}
