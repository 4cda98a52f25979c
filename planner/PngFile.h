// Writes pictures as PNG files (ISO/IEC 15948), compressed without a library.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace planner {

// Rows from the top, three bytes a pixel: red, green, blue; no padding. Width and height at least 1.
struct Picture
{
    int width = 0;
    int height = 0;
    std::vector<std::uint8_t> rgb;
    int dotsPerInch = 96;
};

// The bytes of the file.
std::string PngOf(const Picture& picture);

} // namespace planner
