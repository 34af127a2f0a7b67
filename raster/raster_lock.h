// SPDX-License-Identifier: MIT
// Holds a raster lock for a scope, also when an exception leaves it.
#pragma once

#include "raster/KSRaster.h"

class raster_lock {
public:
    explicit raster_lock(KSRaster& raster) : _raster(raster) { _raster.Lock(); }
    ~raster_lock() { _raster.Unlock(); }

    raster_lock(const raster_lock&) = delete;
    raster_lock& operator=(const raster_lock&) = delete;

private:
    KSRaster& _raster;
};
