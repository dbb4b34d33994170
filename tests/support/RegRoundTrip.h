#pragma once

#include <QString>

// What a backup must survive: the .reg text exported from a store, imported into an empty
// store and exported again, comes back byte for byte. Empty when it does, else what went
// wrong. Free of the test framework, so that a fuzz target can call it as well.
QString RoundTripFault(const QString& backup);
