#include "Lines/GenericEditRemoveLine.h"

CGenericEditRemoveLine::CGenericEditRemoveLine() : CTwoWayLine("Edit", "Remove", 5, 5) {}
