#include "host/geokit/mesh.h"

#include <algorithm>

bool GK_MeshFace::Repair(int vertexCount, const GK_3fPoint* vertices)
{
    std::array<int, 4> kept{};
    std::size_t count = 0;
    for (const int corner : vi) {
        if (corner < 0 || corner >= vertexCount)
            return false;
        const auto repeats = [&](int earlier) {
            return earlier == corner || vertices[earlier] == vertices[corner];
        };
        if (std::none_of(kept.data(), kept.data() + count, repeats))
            kept[count++] = corner;
    }
    if (count < 3)
        return false;
    if (count == 3)
        kept[3] = kept[2];
    vi = kept;
    return true;
}
