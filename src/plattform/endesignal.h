// The port to the system's wish that the process ends: end of the session, a closed terminal, Ctrl-C.
#pragma once

namespace liedwerk {

// From now on SIGTERM and SIGHUP no longer end the process; instead a byte can be read from the descriptor
// that this gives, one for each signal. An event loop can wait for it. -1 on failure: the signals then end
// the process as they always do. Once per process.
int EndesignaleAnnehmen();

// For a program without an event loop, any number of times: from now on SIGINT, SIGTERM and SIGHUP only set
// what EndeVerlangt tells; a second SIGINT ends the process as always. Signals that the caller had ignored
// (nohup) stay ignored. Writing to a pipe that nobody reads fails instead of ending the process.
void EndesignaleMerken();
// True from the first of these signals on.
bool EndeVerlangt();

}  // namespace liedwerk
