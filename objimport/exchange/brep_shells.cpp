#include "objimport/exchange/brep_shape.h"

#include <BRep_Builder.hxx>
#include <TopoDS_Compound.hxx>
#include <TopoDS_Face.hxx>
#include <TopoDS_Iterator.hxx>
#include <TopoDS_Shell.hxx>
#include <numeric>
#include <vector>

namespace {

// For each face the lowest face that it is connected with.
class ConnectedFaces
{
public:
    explicit ConnectedFaces(const GK_Brep& brep)
        : m_parents(static_cast<std::size_t>(brep.FaceCount()))
    {
        std::iota(m_parents.begin(), m_parents.end(), std::size_t{0});
        for (int i = 0; i < brep.EdgeCount(); ++i) {
            const GK_SimpleArray<int>& trims = brep.Edge(i).trimIndices;
            for (int k = 1; k < trims.Count(); ++k)
                Join(FaceOf(brep, trims[0]), FaceOf(brep, trims[k]));
        }
    }

    static std::size_t FaceOf(const GK_Brep& brep, int trim)
    {
        return static_cast<std::size_t>(brep.Loop(brep.Trim(trim).loopIndex).faceIndex);
    }

    std::size_t Lowest(std::size_t face)
    {
        while (m_parents[face] != face)
            face = m_parents[face] = m_parents[m_parents[face]];
        return face;
    }

private:
    void Join(std::size_t a, std::size_t b)
    {
        a = Lowest(a);
        b = Lowest(b);
        m_parents[std::max(a, b)] = std::min(a, b);
    }

    std::vector<std::size_t> m_parents;
};

struct Shell
{
    TopoDS_Shell shell; // null: no face yet
    bool isClosed = true;
};

std::vector<Shell> MakeShells(const GK_Brep& brep, const std::vector<TopoDS_Face>& faces)
{
    const BRep_Builder builder;
    ConnectedFaces connected(brep);
    std::vector<Shell> shells(faces.size());
    for (std::size_t i = 0; i < faces.size(); ++i) {
        Shell& shell = shells[connected.Lowest(i)];
        if (shell.shell.IsNull())
            builder.MakeShell(shell.shell);
        builder.Add(shell.shell, faces[i]);
    }
    for (int i = 0; i < brep.EdgeCount(); ++i) {
        const GK_SimpleArray<int>& trims = brep.Edge(i).trimIndices;
        if (trims.Count() == 1)
            shells[connected.Lowest(ConnectedFaces::FaceOf(brep, trims[0]))].isClosed = false;
    }
    for (Shell& shell : shells)
        if (!shell.shell.IsNull())
            shell.shell.Closed(shell.isClosed);
    return shells;
}

} // namespace

TopoDS_Shape ShellsOf(const GK_Brep& brep, const std::vector<TopoDS_Face>& faces)
{
    const BRep_Builder builder;
    TopoDS_Compound compound;
    builder.MakeCompound(compound);
    for (const Shell& shell : MakeShells(brep, faces))
        if (!shell.shell.IsNull())
            builder.Add(compound, shell.shell);
    return compound.NbChildren() == 1 ? TopoDS_Iterator(compound).Value() : compound;
}
