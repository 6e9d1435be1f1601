#include "tests/check/random_obj.h"

#include <array>
#include <random>

namespace {

class Writer
{
public:
    explicit Writer(std::uint32_t seed) : m_random(seed) {}

    /// Returns one of some texts.
    template <std::size_t N>
    const char* OneOf(const char* const (&texts)[N])
    {
        return texts[m_random() % N];
    }

    int Below(int end) { return static_cast<int>(m_random() % static_cast<std::uint32_t>(end)); }

    std::string Number()
    {
        return Below(60) == 0 ? OneOf({"nan", "1e39", "-inf", "1234567.8", "0x1p3"})
                              : std::to_string(Below(9)) + (Below(2) == 0 ? ".5" : "");
    }

    std::string Numbers(int count)
    {
        std::string numbers;
        for (int i = 0; i < count; ++i)
            numbers += " " + Number();
        return numbers;
    }

    std::string Index(int count)
    {
        const int range = count + (Below(12) == 0 ? 3 : 0);
        const int index = 1 + Below(range < 1 ? 1 : range);
        return std::to_string(Below(4) == 0 ? -index : index);
    }

    std::string Indices(int many, int count)
    {
        std::string indices;
        for (int i = 0; i < many; ++i)
            indices += " " + Index(count);
        return indices;
    }

    std::string Face();
    std::string Curve();
    std::string Surface();
    std::string Statement();
    std::string Name()
    {
        return OneOf({"wall", "roof top", "two  blanks", "Gr\xC3\xBCn", "a\tb", "\xE6\xA8\x81",
                      "door", "x y z", "Caf\xC3\xA9 au lait"});
    }

private:
    std::mt19937 m_random;
    int m_vertices = 0;
    int m_texCoords = 0;
    int m_normals = 0;
};

std::string Writer::Face()
{
    const int form = Below(4);
    std::string face = "f";
    const int corners = Below(20) == 0 ? Below(3) : 3 + Below(4);
    for (int i = 0; i < corners; ++i) {
        const int own = Below(40) == 0 ? Below(4) : form;
        face += " " + Index(m_vertices);
        if (own == 1 || own == 3)
            face += "/" + Index(m_texCoords);
        if (own == 2)
            face += "/";
        if (own >= 2)
            face += "/" + Index(m_normals);
    }
    return face;
}

std::string Writer::Curve()
{
    const int degree = Below(4);
    const int points = 1 + Below(5);
    std::string text = std::string("cstype ") + OneOf({"bspline", "bspline", "rat bspline"}) +
                       "\ndeg " + std::to_string(degree) + "\ncurv 0 1" +
                       Indices(points, m_vertices);
    if (Below(6) == 0)
        return text;
    text += "\nparm u";
    int knot = 0;
    for (int i = 0; i < points + degree + 1; ++i) {
        knot += Below(15) == 0 ? -1 : Below(2);
        text += " " + std::to_string(knot);
    }
    return text + "\nend";
}

std::string Writer::Surface()
{
    std::string text =
        "cstype bspline\ndeg 1 1\nsurf 0 1 0 1" + Indices(Below(6) == 0 ? 3 : 4, m_vertices);
    if (Below(5) != 0)
        text += "\nparm u 0 0 1 1";
    if (Below(5) != 0)
        text += Below(8) == 0 ? "\nparm v 0 0 0 0" : "\nparm v 0 0 1 1";
    return text;
}

std::string Writer::Statement()
{
    const int choice = Below(100);
    if (choice < 30) {
        ++m_vertices;
        return "v" + Numbers(Below(50) == 0 ? 4 + Below(5) : 3);
    }
    if (choice < 38) {
        ++m_texCoords;
        return "vt" + Numbers(2);
    }
    if (choice < 44) {
        ++m_normals;
        return "vn" + Numbers(3);
    }
    if (choice < 74)
        return Face();
    if (choice < 80)
        return OneOf({"g ", "o ", "usemtl ", "g plain ", "o "}) + Name();
    if (choice < 84)
        return "p" + (Below(2) == 0 ? " 1" : Indices(1 + Below(3), 1));
    if (choice < 87)
        return Curve();
    if (choice < 90)
        return Surface();
    if (choice < 92)
        return OneOf(
            {"mtllib random.mtl", "mtllib none.mtl", "mtllib RANDOM.MTL", "mtllib a b.mtl"});
    if (choice < 93)
        return OneOf({"v 1 2", "vt x 1", "p 99", "cstype round", "curv 0 1 99", "trim 0 1 1"});
    return OneOf({"", "# comment", "s 1", "l 1 2", "  # no comment", "end", "foo", "\tg tab"});
}

} // namespace

std::string RandomObj(std::uint32_t seed)
{
    Writer writer(seed);
    const char* const lineEnd = writer.OneOf({"\n", "\n", "\r\n", "\r"});
    std::string text;
    for (int i = writer.Below(4) == 0 ? 200 : 40; i > 0; --i)
        for (const char c : writer.Statement() + "\n")
            text += c == '\n' ? std::string(lineEnd) : std::string(1, c);
    return text;
}

std::string RandomMtl(std::uint32_t seed)
{
    Writer writer(seed);
    std::string text;
    for (int i = writer.Below(12); i > 0; --i) {
        text += "newmtl " + writer.Name() + "\n";
        text += writer.OneOf({"Kd 1 0 0", "Kd 1 0", "map_Kd wood 2.png", "illum 2", "Ns x"});
        text += "\n";
    }
    return text;
}
