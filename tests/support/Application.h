#pragma once

namespace vorelle::test {

// Ends the test program's QApplication and starts a new one, as a host that runs the
// library in two application lifetimes would. Every widget must be gone before.
void RestartApplication();

}  // namespace vorelle::test
