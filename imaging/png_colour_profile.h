// The ICC profile of a PNG file, read from its iCCP chunk: FreeImage's PNG reader leaves it out.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace velmora::imaging {

// The profile's bytes, or none when the file has no readable iCCP chunk before its image data.
std::vector<std::uint8_t> ReadPngColourProfile(const std::string& path);

}  // namespace velmora::imaging
