#pragma once

namespace rotavel {

// From now on SIGINT, SIGTERM and SIGHUP post CloseRequested for window 0 and dismiss an open
// requester, so that the program ends by its own decision. Needs the application object.
void CatchTerminationSignals();

// Gives the signals back their default effect.
void ReleaseTerminationSignals();

}  // namespace rotavel
