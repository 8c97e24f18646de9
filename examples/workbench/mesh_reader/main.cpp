// SPDX-License-Identifier: MIT
//
// Reads one mesh file and writes it to standard output as a MeshStreamHeader describes. A program of its own:
// what a damaged file does to the format importers stays in here, the start of the workbench is not burdened
// with them, and reading can be stopped at any time.
#include <workbench/mesh_reader/mesh_import.h>
#include <workbench/mesh_reader/process.h>

#include <cstdio>
#include <cstdlib>
#include <new>

namespace {

using namespace Workbench;

template <typename Element>
bool write(const std::vector<Element>& elements) {
  return std::fwrite(elements.data(), sizeof(Element), elements.size(), stdout) == elements.size();
}

bool write(const ImportedMesh& mesh) {
  MeshStreamHeader header;
  header.vertexCount = mesh.positions.size();
  header.triangleCount = mesh.triangles.size();
  return std::fwrite(&header, sizeof header, 1, stdout) == 1 && write(mesh.positions) &&
         write(mesh.triangles) && std::fflush(stdout) == 0;
}

int run(const std::string& fileName) {
  try {
    return write(importMesh(fileName)) ? MeshRead : EXIT_FAILURE;
  } catch (const ImportError& error) {
    std::fputs(error.what(), stderr);
    return error.status();
  } catch (const std::bad_alloc&) {
    return MeshTooLarge;
  } catch (const std::length_error&) {
    return MeshTooLarge;
  } catch (const std::exception& error) {
    std::fputs(error.what(), stderr);
    return MeshUnreadable;
  }
}

} // namespace

int main(int argc, char** argv) {
  const std::vector<std::string> names = fileNames(argc, argv);
  if (names.size() != 1) {
    std::fputs("usage: workbench_mesh_reader FILE\n", stderr);
    return EXIT_FAILURE;
  }
  limitProcess(ReadingLimits::forFile(names.front(), machineMemory()));
  makeOutputBinary();
  const int status = run(names.front());
  // Leaves without taking the scene apart again, which takes longer than all of the above.
  std::_Exit(status);
}
