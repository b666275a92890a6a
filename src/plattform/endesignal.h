// The port to the system's wish that the process ends: end of the session, a closed terminal.
#pragma once

namespace liedwerk {

// From now on SIGTERM and SIGHUP no longer end the process; instead a byte can be read from the descriptor
// that this gives, one for each signal. An event loop can wait for it. -1 on failure: the signals then end
// the process as they always do. Once per process.
int EndesignaleAnnehmen();

}  // namespace liedwerk
