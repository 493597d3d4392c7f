#pragma once

namespace vandrel {

// Loads the system's DLLs that the start does without, for as long as the program runs. Left to the first call of one
// of their functions, a failure would end the program. Throws RuntimeError.
void loadDelayedLibraries();

} // namespace vandrel
