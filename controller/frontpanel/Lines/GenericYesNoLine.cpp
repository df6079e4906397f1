#include "Lines/GenericYesNoLine.h"

CGenericYesNoLine::CGenericYesNoLine(const std::string& first, const std::string& second)
    : CTwoWayLine(first, second, 5, 0)
{
}
