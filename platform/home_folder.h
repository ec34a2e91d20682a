#pragma once

namespace orbisgrid {

/// Sets HOME where the environment has none or an empty one (a service, a bare session), to the
/// home folder that the system has for this user; leaves it alone where there is none either. Qt
/// takes the root folder for a missing HOME, and the settings would be sought there.
///
/// To be called first of all: nothing else may run yet that reads the environment.
void provideHome();

} // namespace orbisgrid
