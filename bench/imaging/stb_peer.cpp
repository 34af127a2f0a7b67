// SPDX-License-Identifier: MIT
// What stb_image_resize can do of the benchmarks' tasks: bilinear scaling of straight pixels, its colour
// weighted by alpha.
#include "bench/imaging/tasks.h"

#define STB_IMAGE_RESIZE_IMPLEMENTATION
#define STB_IMAGE_RESIZE_STATIC
#pragma GCC diagnostic ignored "-Wunused-function"
#include <stb/stb_image_resize.h>

void add_stb(Contest& contest, Resampling& task) {
    if (task.kind != Resampling::Kind::kScale || !task.is_bilinear)
        return;
    contest.Add("stb", Picture::kStraight, [&task] {
        const Image& source = task.straight_source;
        Image& destination = task.destination;
        stbir_resize_uint8_generic(source.Data(), source.Width(), source.Height(), source.BytesPerRow(),
                                   destination.Data(), destination.Width(), destination.Height(),
                                   destination.BytesPerRow(), 4, 3, 0, STBIR_EDGE_CLAMP,
                                   STBIR_FILTER_TRIANGLE, STBIR_COLORSPACE_LINEAR, nullptr);
    });
}
