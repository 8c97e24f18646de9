// SPDX-License-Identifier: MIT
//
// Reads one mesh file and writes it to standard output as a MeshStreamHeader describes. A program of its own:
// what a damaged file does to the format importers stays in here, the start of the workbench is not burdened
// with them, and reading can be stopped at any time.
#include <workbench/mesh_reader/mesh_import.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <new>

#if defined(__unix__)
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace {

using namespace Workbench;

#if defined(__unix__)
void lower(decltype(RLIMIT_CPU) resource, rlim_t limit) {
  rlimit current{};
  if (getrlimit(resource, &current) == 0 && limit < current.rlim_cur) {
    current.rlim_cur = limit;
    setrlimit(resource, &current);
  }
}

// A damaged count makes importers ask for any amount of memory or run for ever.
void limitResources(const std::string& fileName) {
  constexpr rlim_t LeastSeconds = 10;
  constexpr rlim_t BytesPerSecond = 1 << 20;
  struct stat status {};
  const rlim_t bytes = stat(fileName.c_str(), &status) == 0 ? rlim_t(status.st_size) : 0;
  lower(RLIMIT_CPU, LeastSeconds + bytes / BytesPerSecond);
  lower(RLIMIT_CORE, 0);
#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
  constexpr rlim_t LeastMemory = rlim_t(1) << 30;
  constexpr rlim_t MemoryPerByte = 200;
  const rlim_t machine = rlim_t(sysconf(_SC_PHYS_PAGES)) * rlim_t(sysconf(_SC_PAGESIZE)) / 4 * 3;
  // The bulk of a text glTF lies in other files.
  const bool hasOtherFiles = fileName.ends_with(".gltf") || fileName.ends_with(".GLTF");
  lower(RLIMIT_AS, hasOtherFiles ? machine : std::min(machine, LeastMemory + bytes * MemoryPerByte));
#endif
}
#else
void limitResources(const std::string&) {}
#endif

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

int run(const char* fileName) {
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
  if (argc != 2) {
    std::fputs("usage: workbench_mesh_reader FILE\n", stderr);
    return EXIT_FAILURE;
  }
  limitResources(argv[1]);
  const int status = run(argv[1]);
  // Leaves without taking the scene apart again, which takes longer than all of the above.
  std::_Exit(status);
}
