// SPDX-License-Identifier: MIT
// Holds a raster lock for a scope, also when an exception leaves it.
#pragma once

#include "raster/KSRaster.h"

class ks_raster_lock {
public:
    explicit ks_raster_lock(KSRaster& raster) : _raster(raster) { _raster.Lock(); }
    ~ks_raster_lock() { _raster.Unlock(); }

    ks_raster_lock(const ks_raster_lock&) = delete;
    ks_raster_lock& operator=(const ks_raster_lock&) = delete;

private:
    KSRaster& _raster;
};
