// The one place where tinygltf is compiled, but for its declarations. It reads and writes no files
// and decodes no images here: the build says so to all who include it.

#include <fstream> // which it forgets when it is to write no files

#define TINYGLTF_IMPLEMENTATION
#include <tiny_gltf.h>
