#include "tests/threads/random_obj.h"

#include <iterator>
#include <string_view>

namespace {

class Writer
{
public:
    explicit Writer(std::mt19937& random)
        : m_random(random), m_lineEnd(Pick({"\n", "\n", "\r\n", "\r"})), m_relative(Chance(3)),
          m_faulty(Chance(2))
    {
    }

    std::string Text()
    {
        for (int left = 4 + Below(12); left > 0; --left) {
            for (int line = Below(40); line > 0; --line)
                WriteVertexLine();
            for (int line = Below(30); line > 0; --line)
                WriteFace();
            WriteOther();
        }
        if (Chance(2))
            m_text.pop_back();
        return std::move(m_text);
    }

private:
    int Below(int n) { return static_cast<int>(m_random() % static_cast<unsigned>(n)); }
    bool Chance(int n) { return Below(n) == 0; }

    const char* Pick(std::initializer_list<const char*> list)
    {
        return *(list.begin() + Below(static_cast<int>(list.size())));
    }

    void EndLine() { m_text += Chance(200) ? std::string_view("\0", 1) : m_lineEnd; }

    void WriteNumbers(int count)
    {
        while (count-- > 0)
            (m_text += ' ') += Pick({"0", "1", "-1", "0.5", "2.25", "-3.125", "1e2", "17", "0.1"});
    }

    void WriteVertexLine()
    {
        switch (Below(6)) {
        case 0:
            m_text += "vt";
            WriteNumbers(2);
            ++m_texCoords;
            break;
        case 1:
            m_text += "vn";
            WriteNumbers(3);
            ++m_normals;
            break;
        default:
            m_text += "v";
            WriteNumbers(Chance(10) ? 4 + 2 * Below(2) : 3);
            ++m_vertices;
            break;
        }
        EndLine();
    }

    int Index(int count)
    {
        if (m_faulty && Chance(60))
            return Below(2 * count + 3) - count - 1;
        if (m_relative ? !Chance(20) : Chance(200))
            return -1 - Below(count);
        return 1 + Below(count);
    }

    void WriteCorner(int form)
    {
        m_text += ' ' + std::to_string(Index(m_vertices));
        if (form == 0)
            return;
        m_text += '/';
        if (form != 2)
            m_text += std::to_string(Index(m_texCoords));
        if (form >= 2)
            m_text += '/' + std::to_string(Index(m_normals));
    }

    void WriteFace()
    {
        if (m_vertices == 0)
            return;
        const bool hasAll = m_texCoords > 0 && m_normals > 0;
        if (Chance(8))
            m_form = hasAll ? Below(4) : 0;
        m_text += 'f';
        for (int corner = m_faulty && Chance(40) ? Below(3) : 3 + Below(Chance(4) ? 5 : 2);
             corner > 0; --corner)
            WriteCorner(m_faulty && hasAll && Chance(100) ? Below(4) : m_form);
        EndLine();
    }

    void WriteOther()
    {
        m_text += Pick({"g wall",
                        "g roof wall",
                        "g",
                        "o house",
                        "o barn",
                        "usemtl brick",
                        "usemtl tile",
                        "s 1",
                        "# a comment",
                        "",
                        "  ",
                        "#",
                        "l 1 2",
                        "p 1",
                        "p 1 2 3",
                        "g a\\",
                        "# f 1 2 3 \\",
                        "v 1 2 \\",
                        "vt 0 \\",
                        "unknown 1 2 3",
                        "f 1 \\",
                        "g c:\\a b c",
                        "\tv 1 2 3",
                        "mtllib none.mtl"});
        if (Chance(20)) // far beyond the small blocks of tests
            (m_text += m_lineEnd).append("#f").append(static_cast<std::size_t>(Below(3000)), ' ');
        if (m_faulty && Chance(40))
            m_text += Pick({"\nusemtl", "\nvt x", "\nv 1"});
        EndLine();
    }

    std::mt19937& m_random;
    std::string m_text;
    std::string_view m_lineEnd;
    bool m_relative;
    bool m_faulty;
    int m_vertices = 0;
    int m_texCoords = 0;
    int m_normals = 0;
    int m_form = 0;
};

} // namespace

std::string RandomObj(std::mt19937& random)
{
    return Writer(random).Text();
}
