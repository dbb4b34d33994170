#pragma once

// Makes the window's pages known to the page factory under the class names the nodes give
// ("KorvexVigil.ctlDominoCUI"), and installs the command test console; programs without a
// window register none.
void RegisterPages();
void UnregisterPages();
