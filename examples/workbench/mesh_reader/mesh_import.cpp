// SPDX-License-Identifier: MIT
#include "mesh_import.h"

#include "process.h"

#include <assimp/DefaultLogger.hpp>
#include <assimp/Importer.hpp>
#include <assimp/LogStream.hpp>
#include <assimp/postprocess.h>
#include <assimp/scene.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <new>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace Workbench {
namespace {

// The importers put up with some kinds of damage, bend the data into shape and only log an error. A mesh with
// made-up triangles is worse than none, so those errors are collected.
class DamageLog : public Assimp::LogStream {
public:
  void write(const char* message) override {
    constexpr std::array<std::string_view, 4> damage{"out of range", "is incorrect", "Invalid face index",
                                                     "bad vertex index"};
    const std::string_view text(message);
    for (const std::string_view word : damage) {
      if (m_first.empty() && text.find(word) != std::string_view::npos)
        m_first = text.substr(std::min(text.size(), text.find(LevelEnd) + LevelEnd.size()));
    }
  }
  const std::string& first() const { return m_first; }

private:
  static constexpr std::string_view LevelEnd = ": "; // after the level and the thread

  std::string m_first;
};

class Flattener {
public:
  explicit Flattener(const aiScene& scene) : m_scene(scene) {}

  // Without recursion: a file decides how deep the nodes are nested.
  ImportedMesh run() {
    std::vector<std::pair<const aiNode*, aiMatrix4x4>> open{{m_scene.mRootNode, aiMatrix4x4()}};
    while (!open.empty()) {
      const auto [node, parent] = open.back();
      open.pop_back();
      if (node == nullptr)
        continue;
      const aiMatrix4x4 placement = parent * node->mTransformation;
      for (unsigned i = 0; i < node->mNumMeshes; ++i)
        addMesh(node->mMeshes[i], placement);
      for (unsigned i = node->mNumChildren; i > 0; --i)
        open.emplace_back(node->mChildren[i - 1], placement);
    }
    if (m_triangles.empty())
      throw ImportError(MeshWithoutTriangles, {});
    return {m_welder.positions(), std::move(m_triangles)};
  }

private:
  void addMesh(unsigned index, const aiMatrix4x4& placement) {
    if (index >= m_scene.mNumMeshes)
      throw ImportError(MeshUnreadable, "A node refers to a mesh that does not exist");
    const aiMesh& mesh = *m_scene.mMeshes[index];
    m_indices.assign(mesh.mNumVertices, Unused);
    for (unsigned i = 0; i < mesh.mNumFaces; ++i) {
      const aiFace& face = mesh.mFaces[i];
      if (face.mNumIndices != 3)
        continue;
      std::array<std::uint32_t, 3> triangle{};
      for (unsigned corner = 0; corner < 3; ++corner)
        triangle[corner] = indexOf(mesh, face.mIndices[corner], placement);
      m_triangles.push_back(triangle);
    }
  }

  // Vertices are taken over when a triangle uses them: scans are full of points that none does.
  std::uint32_t indexOf(const aiMesh& mesh, unsigned vertex, const aiMatrix4x4& placement) {
    if (m_indices[vertex] == Unused) {
      const aiVector3D p = placement * mesh.mVertices[vertex];
      if (!std::isfinite(p.x) || !std::isfinite(p.y) || !std::isfinite(p.z))
        throw ImportError(MeshNotFinite, {});
      m_indices[vertex] = m_welder.add({float(p.x), float(p.y), float(p.z)});
    }
    return m_indices[vertex];
  }

  static constexpr std::uint32_t Unused = 0xFFFFFFFFU;

  const aiScene& m_scene;
  VertexWelder m_welder;
  std::vector<std::uint32_t> m_indices; // of the vertices of one mesh
  std::vector<std::array<std::uint32_t, 3>> m_triangles;
};

// The importers do not check what the triangulation then relies on.
void checkIndices(const aiScene& scene) {
  for (unsigned m = 0; m < scene.mNumMeshes; ++m) {
    const aiMesh& mesh = *scene.mMeshes[m];
    for (unsigned f = 0; f < mesh.mNumFaces; ++f) {
      for (unsigned i = 0; i < mesh.mFaces[f].mNumIndices; ++i) {
        if (mesh.mFaces[f].mIndices[i] >= mesh.mNumVertices)
          throw ImportError(MeshUnreadable, "A face refers to vertex " +
                                                std::to_string(mesh.mFaces[f].mIndices[i]) + " of " +
                                                std::to_string(mesh.mNumVertices));
      }
    }
  }
}

// Faces that were announced and not found are there, without a corner.
std::size_t faceCount(const aiScene& scene) {
  std::size_t count = 0;
  for (unsigned m = 0; m < scene.mNumMeshes; ++m)
    count += std::count_if(scene.mMeshes[m]->mFaces, scene.mMeshes[m]->mFaces + scene.mMeshes[m]->mNumFaces,
                           [](const aiFace& face) { return face.mNumIndices > 0; });
  return count;
}

// How many faces the header of a PLY file announces; none for other files.
std::optional<std::size_t> announcedFaces(const std::string& fileName) {
  constexpr std::string_view Element = "element face ";
  std::ifstream file(pathOf(fileName), std::ios::binary);
  std::string line;
  if (!std::getline(file, line) || !line.starts_with("ply"))
    return std::nullopt;
  while (std::getline(file, line) && !line.starts_with("end_header")) {
    if (line.starts_with(Element))
      return std::strtoull(line.c_str() + Element.size(), nullptr, 10);
  }
  return std::nullopt;
}

// The importer takes a file that was cut off before its faces for one without any.
void checkFaceCount(const aiScene& scene, const std::string& fileName) {
  const std::optional<std::size_t> announced = announcedFaces(fileName);
  const std::size_t found = faceCount(scene);
  if (announced && found < *announced)
    throw ImportError(MeshUnreadable, "It contains " + std::to_string(found) + " of " +
                                          std::to_string(*announced) + " faces");
}

[[noreturn]] void fail(const std::string& error) {
  // The importer turns every exception into its text.
  if (error.find("bad_alloc") != std::string::npos)
    throw std::bad_alloc();
  throw ImportError(MeshUnreadable, error);
}

} // namespace

ImportedMesh importMesh(const std::string& fileName) {
  Assimp::Importer importer;
  auto* const log = new DamageLog; // owned by the logger
  Assimp::DefaultLogger::create("", Assimp::Logger::NORMAL, 0)->attachStream(log, Assimp::Logger::Err);
  const aiScene* scene = importer.ReadFile(fileName, 0);
  if (scene == nullptr || scene->mRootNode == nullptr)
    fail(importer.GetErrorString());
  if (!log->first().empty())
    throw ImportError(MeshUnreadable, log->first());
  checkIndices(*scene);
  checkFaceCount(*scene, fileName);
  scene = importer.ApplyPostProcessing(aiProcess_Triangulate);
  if (scene == nullptr)
    fail(importer.GetErrorString());
  return Flattener(*scene).run();
}

} // namespace Workbench
