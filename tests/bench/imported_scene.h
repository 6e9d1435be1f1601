#pragma once

#include "console_host/app/document.h"
#include "plugin/read_obj.h"

#include <filesystem>
#include <gtest/gtest.h>

/// What became of a file.
struct ImportedScene
{
    int meshes = 0;
    int closedMeshes = 0;
    int vertices = 0;
    int faces = 0; ///< those of a polygon count as one
};

/// Imports a file; the test fails when anything in it is wrong.
inline ImportedScene ImportScene(const std::filesystem::path& path)
{
    const CKelvoFileReadOptions options;
    ConsoleDoc doc(0.001);
    CReadOBJ reader(path.wstring().c_str(), doc, options);
    EXPECT_TRUE(reader.Parse()) << path;
    EXPECT_TRUE(reader.Build()) << path;
    EXPECT_EQ(reader.BogusIndexCount(), 0) << path;

    ImportedScene scene;
    for (int i = 0; i < doc.ObjectCount(); ++i) {
        const auto* const mesh = std::get<const GK_Mesh*>(doc.Object(i).geometry);
        ++scene.meshes;
        scene.closedMeshes += static_cast<int>(mesh->IsClosed());
        scene.vertices += mesh->VertexCount();
        scene.faces += mesh->FaceCount();
        if (const GK_MeshNgonList* const ngons = mesh->NgonList())
            for (int ngon = 0; ngon < ngons->Count(); ++ngon)
                scene.faces -= static_cast<int>(ngons->Ngon(ngon).fi.size()) - 1;
    }
    return scene;
}
