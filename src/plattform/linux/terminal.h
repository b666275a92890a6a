// Questions to the terminal that a program runs in.
#pragma once

namespace liedwerk {

// True when standard error goes to a terminal, so that somebody may be watching.
bool FehlerausgabeIstTerminal();

}  // namespace liedwerk
