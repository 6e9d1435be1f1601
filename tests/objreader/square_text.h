#pragma once

#include <string>

// A square of side 2 with u along x, and the curves of its boundary, a circle within, and a piece
// of the boundary that is written backwards.
inline const std::string Square = "v 0 0 0\nv 2 0 0\nv 0 2 0\nv 2 2 0\n"
                                  "vp 0 0\nvp 1 0\nvp 1 1\nvp 0 1\n"
                                  "vp 0.75 0.5 1\nvp 0.75 0.75 0.70710678118654752\nvp 0.5 0.75 1\n"
                                  "vp 0.25 0.75 0.70710678118654752\nvp 0.25 0.5 1\n"
                                  "vp 0.25 0.25 0.70710678118654752\nvp 0.5 0.25 1\n"
                                  "vp 0.75 0.25 0.70710678118654752\n"
                                  "cstype bspline\ndeg 1 1\n"
                                  "curv2 1 2 3\nparm u 0 0 1 2 2\n"
                                  "curv2 1 4 3\nparm u 0 0 1 2 2\n"
                                  "cstype rat bspline\ndeg 2\n"
                                  "curv2 5 6 7 8 9 10 11 12 5\nparm u 0 0 0 1 1 2 2 3 3 4 4 4\n"
                                  "cstype bspline\ndeg 1 1\n";
inline const std::string Surface = "surf 0 1 0 1 1 2 3 4\n";
inline const std::string Knots = "parm u 0 0 1 1\nparm v 0 0 1 1\n";

inline std::string Repeated(const std::string& text, int count)
{
    std::string repeated;
    for (int i = 0; i < count; ++i)
        repeated += text;
    return repeated;
}

inline std::string CountUpTo(int last)
{
    std::string numbers;
    for (int i = 0; i <= last; ++i)
        numbers += " " + std::to_string(i);
    return numbers;
}
