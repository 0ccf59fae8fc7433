#pragma once

namespace tovarin::fw {

// Ends the event loop with the exit value. A second call does no harm.
void quit(int exitValue);

} // namespace tovarin::fw
