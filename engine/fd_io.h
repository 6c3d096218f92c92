// Whole reads and writes on file descriptors, going on after interruptions by signals.
#pragma once

#include <cstddef>
#include <string_view>

namespace velmora::engine {

// False when the descriptor refused before every byte was written.
bool WriteAll(int fd, std::string_view bytes);
// False when the stream ended or broke before `size` bytes came.
bool ReadAll(int fd, char* data, std::size_t size);

}  // namespace velmora::engine
