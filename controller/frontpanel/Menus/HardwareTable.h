// Look-ups in the unit's hardware tables: the boards fitted ("hardware*.%", one instance
// per board) and the models the unit knows ("modelId.%" with "modelName.%").
#pragma once

#include <string>

#include "ScreenManager/Rows.h"

// The model name of a model id; the id itself when the model table does not list it.
std::string ModelName(const CRowValues& values, const std::string& modelId);
// The instance of the board fitted at a location ("Top Slot"); "" when there is none.
std::string BoardAt(const CRowValues& values, const std::string& location);
