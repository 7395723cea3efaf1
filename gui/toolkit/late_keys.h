#pragma once

namespace rotavel {

// X sends a key to the window that has the keyboard just then. The toolkit drops it when that was a
// menu or a box that the program has closed meanwhile, as on a busy machine: from now on it goes to
// the window that gets the keys next. Needs the application object, for once.
void CatchLateKeys();

}  // namespace rotavel
