#pragma once

#include "services/VigilError.h"

class ComponentHandler;

// What a page raises from Setup when the node gives it no handler, or one it can't show.
VigilError HandlerMismatch(const QString& pageName, const ComponentHandler* handler);
