#pragma once
#include "AppInit.h"
#include "Db.h"
#include "Venue.h"
#include "VenueGenerator.h"
#include <QTemporaryDir>

// A venue folder in `dir`, its database opened on the process connection and filled by the
// generator.
inline GeneratedVenue OpenGeneratedVenue(const QTemporaryDir& dir, const VenueSize& size) {
    Venue::prepare(dir.path());
    AppInit(dir.path());
    Venue::openAndUpgrade(DB(), Venue::connection(dir.path()));
    return GenerateVenue(DB(), size);
}
