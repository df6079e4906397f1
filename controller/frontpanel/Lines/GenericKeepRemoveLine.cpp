#include "Lines/GenericKeepRemoveLine.h"

CGenericKeepRemoveLine::CGenericKeepRemoveLine() : CTwoWayLine("Keep", "Remove", 6, 5) {}
